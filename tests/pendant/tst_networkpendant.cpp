#include "broker.h"
#include "cell.h"
#include "link/mqtt/mqttlink.h"
#include "linkwords.h"
#include "support/testpendant.h"

namespace {

/// A pendant of bert's on the cell, connected; anna's link to it is not up yet.
struct Fixture
{
    testsupport::Setup setup() const
    {
        testsupport::Setup setup;
        setup.controller = QString("mqtt://bert:%1@127.0.0.1:%2/cell")
                               .arg(broker.as("bert").password)
                               .arg(broker.port());
        return setup;
    }
    QString messages()
    {
        QString texts;
        for (const auto &entry : pendant.messages())
            texts += entry.text + '|';
        return texts;
    }

    Broker broker;
    const Cell cell{Cell::options(broker.as("cell"))};
    welmo::links::MqttLink other{{broker.as("anna"), "cell"}};
    testsupport::TestPendant pendant{setup()};
};

} // namespace

/// The real pendant with the real library, and a cell on the network.
class tst_NetworkPendant : public QObject
{
    Q_OBJECT
private slots:
    void controlIsShownAndPassedOn()
    {
        Fixture ui;
        const auto text = [&] { return ui.pendant.find<QLabel>("lblControl")->text(); };
        const auto *take = ui.pendant.find<QPushButton>("btnTakeControl");
        ui.pendant.open("controller");
        QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("This pendant"), patient);
        ui.pendant.click("btnGiveControl");
        QVERIFY(text().startsWith("Nobody"));
        ui.other.open(); // who comes takes the control that is free
        QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("anna ("), patient); // then the pendant
        QVERIFY(!take->isEnabled());
        ui.other.close();
        QTRY_VERIFY_WITH_TIMEOUT(take->isEnabled(), patient);
        ui.pendant.click("btnTakeControl");
        QVERIFY(text().startsWith("This pendant"));
    }
    void theWindowLivesOnWhileTheCellIsSilent()
    {
        QSemaphore silence;
        Fixture ui;
        const QSemaphoreReleaser end(silence); // without it the cell would never end
        ui.pendant.openSubPage("Process Setting");
        QMetaObject::invokeMethod(
            ui.cell.service(), [&silence] { silence.acquire(); }, Qt::QueuedConnection);
        QTRY_VERIFY_WITH_TIMEOUT(!ui.pendant.host()->service()->isConnected(), patient);
        ui.pendant.click("btnWeldingSave");
        QVERIFY(ui.messages().startsWith("tessa is not connected|"));
        ui.pendant.open("home");
        QVERIFY(ui.pendant.window()->close());
        ui.pendant.app().stop();
    }
};

QTEST_MAIN(tst_NetworkPendant)
#include "tst_networkpendant.moc"
