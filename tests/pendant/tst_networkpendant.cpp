#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include "broker.h"
#include "cell.h"
#include "link/mqttlink.h"
#include "linkwords.h"
#include "pendant/pages.h"
#include "pendant/pendantapp.h"
#include "pendant/pendantwindow.h"
#include "support/logguard.h"
#include "tessa/host.h"

/// The real pendant with the real library, and a cell on the network.
class tst_NetworkPendant : public QObject
{
    Q_OBJECT
private slots:
    void controlIsShownAndPassedOn();
};

void tst_NetworkPendant::controlIsShownAndPassedOn()
{
    const testsupport::LogGuard guard;
    Broker broker;
    const Cell cell(Cell::options(broker.as("cell")));
    const QTemporaryDir folder;
    pendant::Options options{"en", "light", folder.path(), WELMO_MODULE};
    options.controller = QString("mqtt://bert:%1@127.0.0.1:%2/cell")
                             .arg(broker.as("bert").password)
                             .arg(broker.port());
    pendant::PendantApp app(options, pendant::connectTo);
    app.start();
    const auto text = [&] { return app.window()->findChild<QLabel *>("lblControl")->text(); };
    const auto button = [&](const char *name) {
        return app.window()->findChild<QPushButton *>(name);
    };
    app.window()->showPage(pendant::controllerKey);
    QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("This pendant"), patient);
    button("btnGiveControl")->click();
    QVERIFY(text().startsWith("Nobody"));

    links::MqttLink other({broker.as("anna"), "cell"});
    other.open(); // takes what is free
    QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("anna"), patient);
    QVERIFY(!button("btnTakeControl")->isEnabled());
    if (const QString pictures = qEnvironmentVariable("WELMO_PICTURES"); !pictures.isEmpty())
        QVERIFY(app.window()->grab().save(pictures + "/control.png"));
    other.close();
    QTRY_VERIFY_WITH_TIMEOUT(button("btnTakeControl")->isEnabled(), patient);
    button("btnTakeControl")->click();
    QVERIFY(text().startsWith("This pendant"));
    app.stop();
}

QTEST_MAIN(tst_NetworkPendant)
#include "tst_networkpendant.moc"
