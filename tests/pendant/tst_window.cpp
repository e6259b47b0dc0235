#include <functional>

#include "pendant/window/messageline.h"
#include "support/testpendant.h"

using namespace testsupport;
using welmo::controller::Faults;

class TestWindow : public QObject
{
    Q_OBJECT
private slots:
    void availabilityFollowsTheCell()
    {
        TestPendant pendant;
        pendant.open("arcweldpackage");
        const auto *box = pendant.find("gbx_weldSelection");
        pendant.open("controller");
        for (const bool usable : {false, true}) {
            pendant.click("btnCellFault");
            QTRY_COMPARE(box->isEnabled(), usable);
        }
        for (const auto &[combo, taken, given] : {std::array{"cbxMode", "Automatic", "Manual"},
                                                  {"cbxPower", "Power off", "Power on"}}) {
            pendant.choose(combo, taken);
            QTRY_VERIFY(!box->isEnabled());
            pendant.choose(combo, given);
            QTRY_VERIFY(box->isEnabled());
        }
    }
    void headerTellsTheCell()
    {
        TestPendant pendant;
        const auto text = [&](const char *name) { return pendant.find<QLabel>(name)->text(); };
        QTRY_COMPARE(text("lblState"), QString("Idle"));
        QTRY_COMPARE(text("lblMode"), QString("Test run"));
        QCOMPARE(text("lblUser"), QString("Administrator"));
        pendant.faults()->set(Faults::Fault::WelderError, true);
        QTRY_COMPARE(text("lblState"), QString("Fault"));
        pendant.host()->service()->execCommand(nullptr, "arc_weld.set_weld_mode",
                                               QVariantMap{{"mode", "real"}});
        QTRY_COMPARE(text("lblModeText"), QString("Real welding"));
        QCOMPARE(pendant.find("pndModeStrip")->property("mode").toString(), QString("real"));
    }
    void anErrorStaysUntilLookedAt()
    {
        TestPendant pendant;
        const auto *line = pendant.window()->findChild<welmo::pendant::MessageLine *>();
        const int before = pendant.host()->helper()->log()->unseenErrors();
        pendant.host()->helper()->throwLog(nullptr, "error", "broken");
        pendant.host()->helper()->throwLog(nullptr, "info", "fine");
        QCOMPARE(line->text(), QString("broken"));
        QCOMPARE(line->later(), QString("fine"));
        pendant.restart();
        line = pendant.window()->findChild<welmo::pendant::MessageLine *>();
        const auto *entry = pendant.find<QAbstractButton>("nav_messages");
        QCOMPARE(line->text(), QString("broken"));
        QCOMPARE(entry->text(), QString("Messages (%1)").arg(before + 1));
        QTest::mouseClick(pendant.find("lblLastMessage"), Qt::LeftButton);
        QCOMPARE(entry->text(), QString("Messages"));
        QVERIFY(line->text() != "broken");
        pendant.open("home");
        QCOMPARE(pendant.find<QTableView>("tblMessages")->model()->index(1, 2).data(),
                 QVariant("broken"));
    }
    void messagesFollowTheLanguage()
    {
        TestPendant pendant;
        const QString told = QCoreApplication::translate("Connection", "tessa not connected");
        pendant.host()->helper()->throwLog(nullptr, "error", told);
        Setup chinese = pendant.setup();
        chinese.language = "zh_CN";
        pendant.restart(chinese);
        const auto *line = pendant.window()->findChild<welmo::pendant::MessageLine *>();
        QCOMPARE(line->text(), QCoreApplication::translate("Connection", "tessa not connected"));
        QVERIFY(line->text() != told);
    }
    // A lost link comes back by itself; one that was switched off does not.
    void controllerGone()
    {
        TestPendant pendant;
        const auto *word = pendant.find<QLabel>("lblLinkState");
        pendant.open("controller");
        pendant.click("btnFault_LinkDown");
        QVERIFY(pendant.waitDisconnected());
        QCOMPARE(word->text(), "Connecting…");
        pendant.click("btnClearFaults");
        QVERIFY(pendant.waitConnected());
        QCOMPARE(word->text(), "Connected");
        pendant.click("btnControllerLink"); // which the switch in the header must show
        QVERIFY(pendant.waitDisconnected());
        QCOMPARE(word->text(), "Link off");
        QVERIFY(!pendant.find<QAbstractButton>("btnLink")->isChecked());
    }
    void faultsAndAnswers()
    {
        TestPendant pendant;
        pendant.open("controller");
        const auto *button = pendant.find<QAbstractButton>("btnFault_NoGas");
        for (const bool on : {true, false}) { // other pages switch faults as well
            pendant.faults()->set(Faults::Fault::NoGas, on);
            QTRY_COMPARE(button->isChecked(), on);
        }
        pendant.choose("cbxRefusedPath", "arc_weld.weld_param");
        pendant.chooseCode("cbxRefusalCode", 7);
        pendant.click("btnRefuseNext");
        auto *service = pendant.host()->service();
        for (const auto &[path, code] : {std::pair{"arc_weld.arcon_param", 0},
                                         {"arc_weld.weld_param", 7},
                                         {"arc_weld.weld_param", 0}})
            QCOMPARE(service->get(nullptr, path)->getInt(), code);
        pendant.click("btnLoseNext");
        const auto answer =
            service->exchange({tessa::LinkRequest::Kind::Get, "arc_weld.weld_mode", {}, {}}, 50);
        QVERIFY(answer->getInt() != 0);
        QVERIFY(!service->isConnected());
        QVERIFY(pendant.waitConnected());
    }
};

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
