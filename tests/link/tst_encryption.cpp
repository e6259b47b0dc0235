#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

#include "broker.h"
#include "cell.h"
#include "link/mqttlink.h"
#include "linkwords.h"

using links::MqttLink;

/// Pendants and cells that reach the broker through TLS, and what they refuse.
class tst_Encryption : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void whoIsTrusted_data();
    void whoIsTrusted();
    void nothingLeavesInTheClear();

private:
    void openssl(const QStringList &arguments);
    QString path(const QString &name) const { return m_folder.filePath(name); }
    void write(const QString &name, const QByteArray &text) const;

    QTemporaryDir m_folder;
};

void tst_Encryption::openssl(const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(m_folder.path());
    process.start("openssl", arguments);
    QVERIFY(process.waitForFinished());
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
}

void tst_Encryption::write(const QString &name, const QByteArray &text) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

// One authority, and certificates of it with a life and a name each.
void tst_Encryption::initTestCase()
{
    write("ca.cnf",
          "[ca]\ndefault_ca=d\n[d]\ndatabase=index\nserial=serial\nnew_certs_dir=.\n"
          "default_md=sha256\npolicy=p\nunique_subject=no\n[p]\ncommonName=supplied\n");
    write("index", {});
    write("serial", "01\n");
    write("here", "subjectAltName=IP:127.0.0.1\n");
    write("elsewhere", "subjectAltName=DNS:broker.example.org\n");
    const QStringList key{"-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes"};
    openssl(QStringList{"req", "-x509", "-keyout", "ca.key", "-out", "ca.crt", "-subj", "/CN=ca",
                        "-days", "2"}
            + key);
    openssl(QStringList{"req", "-x509", "-keyout", "own.key", "-out", "own.crt", "-subj", "/CN=x",
                        "-addext", "subjectAltName=IP:127.0.0.1"}
            + key);
    openssl(QStringList{"req", "-keyout", "broker.key", "-out", "csr", "-subj", "/CN=x"} + key);
    const auto sign = [&](const QString &file, const QString &name, const QString &end) {
        openssl({"ca", "-batch", "-config", "ca.cnf", "-keyfile", "ca.key", "-cert", "ca.crt",
                 "-in", "csr", "-out", file, "-extfile", name, "-startdate", "20200101000000Z",
                 "-enddate", end, "-notext"});
    };
    sign("good.crt", "here", "20991231000000Z");
    sign("old.crt", "here", "20200201000000Z");
    sign("foreign.crt", "elsewhere", "20991231000000Z");
}

void tst_Encryption::whoIsTrusted_data()
{
    QTest::addColumn<QString>("certificate");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("good") << "good"
                          << "";
    QTest::newRow("expired") << "old"
                             << "expired";
    QTest::newRow("for another host") << "foreign"
                                      << "another host";
    QTest::newRow("signed by itself") << "own"
                                      << "nobody who is trusted";
}

void tst_Encryption::whoIsTrusted()
{
    QFETCH(QString, certificate);
    QFETCH(QString, refusal);
    Broker broker;
    broker.encrypt(path(certificate + ".crt"),
                   path(certificate == "own" ? "own.key" : "broker.key"));
    const auto as = [&](const QString &user) {
        links::BrokerAddress address = broker.as(user);
        address.caFile = path("ca.crt");
        return address;
    };
    const Cell cell(Cell::options(as("cell")));
    MqttLink link({as("anna"), "cell"});
    QSignalSpy problems(&link, &MqttLink::problem);
    link.open();
    if (refusal.isEmpty()) {
        QVERIFY2(QTest::qWaitFor([&] { return link.isUp(); }, 10000),
                 qPrintable(problems.value(0).value(0).toString()));
        QCOMPARE(link.call({Kind::Get, modeNode, {}, {}}, patient).code, 0);
        return;
    }
    QTRY_VERIFY_WITH_TIMEOUT(!problems.isEmpty(), patient);
    QVERIFY2(problems.first().at(0).toString().contains(refusal),
             qPrintable(problems.first().at(0).toString()));
    QVERIFY(!link.isUp());
}

void tst_Encryption::nothingLeavesInTheClear()
{
    links::BrokerAddress address;
    address.host = "192.0.2.1"; // a network that is nowhere
    address.port = 1883;
    MqttLink link({address, "cell"});
    QSignalSpy problems(&link, &MqttLink::problem);
    link.open();
    QTRY_VERIFY_WITH_TIMEOUT(!problems.isEmpty(), patient);
    QVERIFY(problems.first().at(0).toString().contains("encryption"));
}

QTEST_GUILESS_MAIN(tst_Encryption)
#include "tst_encryption.moc"
