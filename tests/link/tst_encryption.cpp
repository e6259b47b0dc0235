
#include "broker.h"
#include "cell.h"
#include "pendant.h"
#include "support/datarows.h"

using namespace testsupport;

/// Pendants and cells trust a broker only with a good certificate.
class tst_Encryption : public QObject
{
    Q_OBJECT
private slots:
    void whoIsTrusted_data()
    {
        const QString byCa = "-CA ca.crt -CAkey ca.key";
        addRows<QString, QString, int, QString>(
            {// the host that it is for, who signs it, days that it is valid; the reason of a
             // refusal
             {"good", "IP:127.0.0.1", byCa, 1, ""},
             {"expired", "IP:127.0.0.1", byCa, -1, "expired"},
             {"for another host", "DNS:broker.example.org", byCa, 1, "another host"},
             {"signed by itself", "IP:127.0.0.1", "-signkey broker.key", 1,
              "nobody who is trusted"}});
    }
    void whoIsTrusted()
    {
        const auto &[name, host, signer, days, refusal] =
            currentRow<QString, QString, int, QString>();
        const QString key = " -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -subj /CN=x";
        openssl("req -x509 -keyout ca.key -out ca.crt" + key);
        openssl("req -keyout broker.key -out csr -addext subjectAltName=" + host + key);
        openssl(QString("x509 -req -in csr -copy_extensions copy -out broker.crt -days %1 %2")
                    .arg(days)
                    .arg(signer));
        Broker broker;
        broker.encrypt(m_folder.filePath("broker.crt"), m_folder.filePath("broker.key"));
        const auto as = [&](const QString &user) {
            welmo::links::BrokerAddress address = broker.as(user);
            address.caFile = m_folder.filePath("ca.crt");
            return address;
        };
        const Cell cell(Cell::options(as("cell")));
        const Pendant anna(as("anna"));
        anna.link->open();
        QVERIFY(refusal.isEmpty() ? anna.waitUp() : anna.isTold(refusal));
        QCOMPARE(anna.get().code, refusal.isEmpty() ? 0 : LinkReply::NotConnected);
    }
    void nothingLeavesInTheClear()
    {
        welmo::links::BrokerAddress address;
        address.host = "192.0.2.1"; // a network that exists nowhere
        address.port = 1883;
        const Pendant pendant(address);
        pendant.link->open();
        QVERIFY(pendant.isTold("encryption"));
    }

private:
    void openssl(const QString &line) const
    {
        const QString command = QStringLiteral("cd '%1' && openssl %2 2>openssl.log");
        QCOMPARE(std::system(qPrintable(command.arg(m_folder.path(), line))), 0);
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_Encryption)
#include "tst_encryption.moc"
