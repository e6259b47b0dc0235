#include <QComboBox>
#include <QLabel>
#include <QScrollArea>
#include <QTest>
#include <QToolButton>

#include "pando/frame.h"
#include "pendant/linkcontrol.h"
#include "pendant/messageline.h"
#include "support/rows.h"
#include "support/testpendant.h"

using testsupport::Rows;
using testsupport::Setup;
using testsupport::TestPendant;

class TestWindow : public QObject
{
    Q_OBJECT
private slots:
    void navigation()
    {
        TestPendant pendant;
        const QPair<QString, QString> entries[] = {{"arcweldpackage", "welmo.page"},
                                                   {"messages", "pendant.messages"},
                                                   {"controller", "pendant.controller"},
                                                   {"home", "pendant.home"}};
        for (const auto &[entry, page] : entries) {
            pendant.open(entry);
            QCOMPARE(pando::frame().center->currentKey(), page);
            for (const auto *button : pendant.find("pndNav")->findChildren<QToolButton *>())
                QCOMPARE(button->isChecked(), button->objectName() == "nav_" + entry);
        }
        pendant.open("home");
        QVERIFY(pendant.find<QToolButton>("nav_home")->isChecked());
        QVERIFY(pando::frame().rightSide->isHidden());
    }
    void toyModuleIsStarted()
    {
        Setup setup;
        setup.modulePath = TOY_MODULE;
        TestPendant pendant(setup);
        QVERIFY(m("toy.init")->getBool());
        pendant.restart();
        QVERIFY(m("toy.init")->getBool());
    }
    void availabilityFollowsHeader()
    {
        const Rows<QString, QString, QString> rows{
            {"state", "cbxState", "Fault", "Running"},
            {"mode", "cbxMode", "Automatic", "Manual"},
            {"power", "cbxPower", "Power off", "Power on"},
        };
        for (const auto &[name, selector, unavailable, available] : rows) {
            TestPendant pendant;
            pendant.open("arcweldpackage");
            const auto isAvailable = [&pendant] {
                const auto *content = pendant.find("wgtContent");
                for (const auto *child :
                     content->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
                    if (child->isVisible() && !child->isEnabled())
                        return false;
                }
                return true;
            };
            QVERIFY(isAvailable());
            pendant.choose(selector, unavailable);
            QVERIFY(!isAvailable());
            pendant.choose(selector, available);
            QVERIFY(isAvailable());
        }
    }
    // A link that is lost is not a link that was switched off: it comes back by itself.
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
        pendant.click("btnControllerLink"); // the same switch as in the header
        QVERIFY(pendant.waitDisconnected());
        QCOMPARE(word->text(), "Link off");
        QVERIFY(!pendant.find<QAbstractButton>("btnLink")->isChecked());
    }
    void statusBar()
    {
        TestPendant pendant;
        auto *helper = pendant.host()->helper();
        const auto *line = pendant.window()->findChild<pendant::MessageLine *>();
        helper->throwLog(nullptr, "warning", QString(400, 'x'));
        QCOMPARE(line->text(), QString(400, 'x'));
        QVERIFY(pendant.find<QLabel>("lblLastMessage")->text().endsWith("…"));
        helper->throwLog(nullptr, "info", "done");
        QCOMPARE(line->text(), "done");
        QCOMPARE(pendant.find<QLabel>("lblLastMessage")->text(), "done");
        pendant.open("messages");
        pendant.click("btnClearMessages");
        QCOMPARE(line->text(), QString());
        QVERIFY(pando::frame().status->item("orbo.body.statuspage.wgtStrech2"));
    }
    // Everything goes and comes again, the library with its code included.
    void restarts()
    {
        TestPendant pendant;
        for (int round = 0; round < 5; ++round) {
            pendant.restart();
            pendant.open("arcweldpackage");
            QCOMPARE(pando::frame().center->currentKey(), "welmo.page");
        }
    }
    void displayIsKept()
    {
        TestPendant pendant;
        pendant.changeDisplay("cbxLanguage", "zh_CN");
        pendant.changeDisplay("cbxTheme", "dark");
        QCOMPARE(pendant.find<QLabel>("lblLinkState")->text(), QString::fromUtf8("已连接"));
        Setup asBefore;
        asBefore.language = asBefore.theme = QString();
        pendant.restart(asBefore);
        QCOMPARE(pendant.find<QComboBox>("cbxTheme")->currentData(), "dark");
        QCOMPARE(pendant.find<QLabel>("lblLinkState")->text(), QString::fromUtf8("已连接"));
    }
    // Closing the window must leave a pendant that can be stopped in any order.
    void windowIsClosed()
    {
        TestPendant pendant;
        pendant.open("arcweldpackage");
        pendant.window()->close();
        pendant.app().stop();
        QVERIFY(!pando::frame().center);
        QVERIFY(!tessa::Host::current());
    }
};

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
