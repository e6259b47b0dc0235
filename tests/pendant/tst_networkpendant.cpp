#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QSemaphore>
#include <QtTest>

#include "broker.h"
#include "cell.h"
#include "link/mqtt/mqttlink.h"
#include "linkwords.h"
#include "support/programtouch.h"
#include "support/testpendant.h"

namespace {

/// A pendant of bert's on the cell, connected; anna's link to it is not up yet.
struct Desk
{
    explicit Desk(const QString &name = "bert")
        : user(name)
    { }

    const QString user;

    testsupport::Setup setup() const
    {
        testsupport::Setup setup;
        setup.controller = QString("mqtt://%1:%2@127.0.0.1:%3/cell")
                               .arg(user, broker.as(user).password)
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
        Desk desk;
        const auto text = [&] { return desk.pendant.find<QLabel>("lblControl")->text(); };
        const auto *take = desk.pendant.find<QPushButton>("btnTakeControl");
        desk.pendant.open("controller");
        QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("This pendant"), patient);
        desk.pendant.click("btnGiveControl");
        QVERIFY(text().startsWith("Nobody"));
        desk.other.open(); // takes what is free
        QTRY_VERIFY_WITH_TIMEOUT(text().startsWith("anna"), patient);
        QVERIFY(!take->isEnabled());
        desk.other.close();
        QTRY_VERIFY_WITH_TIMEOUT(take->isEnabled(), patient);
        desk.pendant.click("btnTakeControl");
        QVERIFY(text().startsWith("This pendant"));
    }
    // The one who edits decides, in full knowledge.
    void whatAnotherPendantSavedIsTold()
    {
        using Kind = tessa::LinkRequest::Kind;
        const QString set = "arc_weld.weld_param";
        const QString file = "arcdata1";
        Desk desk;
        desk.pendant.openSubPage("Process Setting"); // which reads the file
        desk.other.open();
        QTRY_VERIFY_WITH_TIMEOUT(desk.other.isUp(), patient);
        const auto stored = [&] {
            return desk.other.call({Kind::Get, set, file, {}}, patient).value.toMap();
        };
        QVariantMap theirs = stored();
        theirs["current"] = 111.0;
        QCOMPARE(desk.other.call({Kind::Set, set, file, theirs}, patient).code, 0);
        auto *current = desk.pendant.find<QDoubleSpinBox>("sbxWeldCurrent");
        current->setValue(222);
        const QString told = "arcdata1: \"current\" was changed elsewhere to 111";
        QTRY_VERIFY_WITH_TIMEOUT(desk.messages().contains(told), patient);
        QCOMPARE(current->value(), 222.0);
        QCOMPARE(stored()["current"].toDouble(), 111.0);
        desk.pendant.click("btnWeldingSave");
        QTRY_COMPARE_WITH_TIMEOUT(stored()["current"].toDouble(), 222.0, patient);
    }
    void aRunWhoseLinkIsLost()
    {
        Desk desk("anna"); // who may load a program
        testsupport::ProgramTouch(desk.pendant).open("fillet.tl");
        const auto may = [&](const char *name) { return desk.pendant.find(name)->isEnabled(); };
        desk.pendant.click("btnProgramRun");
        QTRY_VERIFY_WITH_TIMEOUT(may("btnProgramPause"), patient);
        desk.cell.service()->faults()->set(welmo::controller::Faults::Fault::LinkDown, true);
        const auto *banner = desk.pendant.find<QLabel>("lblAlarm");
        QTRY_VERIFY_WITH_TIMEOUT(banner->text().startsWith("Link lost "), patient);
        QVERIFY(may("btnProgramStop") && !may("btnInsertLine"));
        desk.cell.service()->faults()->clear();
        QTRY_VERIFY_WITH_TIMEOUT(desk.pendant.host()->service()->isConnected(), patient);
        desk.pendant.click("btnProgramStop");
        QTRY_VERIFY_WITH_TIMEOUT(may("btnInsertLine"), patient);
    }
    void theWindowLivesOnWhileTheCellIsSilent()
    {
        QSemaphore silence;
        Desk desk;
        const QSemaphoreReleaser end(silence); // or else the cell would never go
        desk.pendant.openSubPage("Process Setting");
        QMetaObject::invokeMethod(
            desk.cell.service(), [&silence] { silence.acquire(); }, Qt::QueuedConnection);
        QTRY_VERIFY_WITH_TIMEOUT(!desk.pendant.host()->service()->isConnected(), patient);
        desk.pendant.click("btnWeldingSave");
        QVERIFY(desk.messages().startsWith("tessa is not connected|"));
        desk.pendant.open("home");
        QVERIFY(desk.pendant.window()->close());
        desk.pendant.app().stop();
    }
};

QTEST_MAIN(tst_NetworkPendant)
#include "tst_networkpendant.moc"
