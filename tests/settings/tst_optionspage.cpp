#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QtTest>
#include <random>

#include "data/inputs.h"
#include "settings/weldingoptionspage.h"
#include "support/formhost.h"
#include "vu/switchbutton.h"

using namespace welmo;
using testsupport::child;
using testsupport::FormHost;

namespace {

const QString stateNode = QStringLiteral("arc_weld.anticollision_state");

struct Desk
{
    FormHost host;
    WeldingOptionsPage page;
    EnableButton *sensor = child<EnableButton>(page.wgt(), "btn_antiCollisionSwitch");
    EnableButton *shield = child<EnableButton>(page.wgt(), "btn_antiCollisionShield");
    QComboBox *input = child<QComboBox>(page.wgt(), "cbx_DISelection_anti");
    QDoubleSpinBox *wireSpeed = child<QDoubleSpinBox>(page.wgt(), "sbx_wireSpeed");

    explicit Desk(const QString &unreadable = {})
        : page((host.faults()->setCode(unreadable, 8), host.window()), host.window())
    {
        page.initPage();
        host.takeMessages();
        host.takeRequests();
    }
    void press(const char *button) const { child<QPushButton>(page.wgt(), button)->click(); }
    /// What was said and, behind it, what was sent.
    QStringList outcome()
    {
        QStringList lines = host.takeMessages();
        for (QString &line : lines)
            line.remove(" [welding options]");
        for (const QString &request : host.takeRequests()) {
            if (!request.startsWith("watch"))
                lines.append(request.section(' ', 0, 1));
        }
        return lines;
    }
    void spoil(const QString &fault, const QString &path)
    {
        if (fault == "down")
            QVERIFY(host.disconnect());
        else if (fault == "refused")
            host.faults()->setCode(path, 7);
    }
};

} // namespace

/// The three groups of options.
class tst_OptionsPage : public QObject
{
    Q_OBJECT

private slots:
    void onlyFreeInputsAreOffered()
    {
        Desk desk;
        kelp::ModuleObject *list = m("orbo.robot.io.signal_detail");
        list->copyFrom(this, std::make_unique<kelp::ModuleObject>("none").get());
        for (const auto &[name, taken, type] :
             {std::tuple{"DI2_1", false, 1}, std::tuple{"DI1_10", false, 1},
              std::tuple{"DI1_2", false, 1}, std::tuple{"DI1_1", true, 1},
              std::tuple{"DO1_3", false, 2}}) {
            list->c(name, true)->set(this, "is_default_IO", taken);
            list->c(name)->set(this, "signal_type", type);
        }
        const QStringList names{"No signal", "DI1_2", "DI1_10", "DI2_1"};
        QCOMPARE(inputs::getDIRange(), names);
        desk.page.initPage();
        for (int i = 0; i < desk.input->count(); ++i)
            QCOMPARE(desk.input->itemText(i), names.value(i));
    }

    void inputOrder_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("first");
        QTest::newRow("short") << "No signal"
                               << "DI1_1" << true;
        QTest::newRow("short behind") << "DI1_1"
                                      << "No signal" << false;
        QTest::newRow("two short") << "b"
                                   << "a" << true;
        QTest::newRow("board") << "DI2_1"
                               << "DI10_1" << true;
        QTest::newRow("pin") << "DI1_10"
                             << "DI1_9" << false;
        QTest::newRow("same") << "DI1_1"
                              << "DI1_1" << false;
        QTest::newRow("empty parts") << "_"
                                     << "DI1_0" << true;
        QTest::newRow("no numbers") << "DIx_y"
                                    << "DI0_1" << true;
        QTest::newRow("a third part") << "DI1_2_9"
                                      << "DI1_3_1" << true;
    }
    void inputOrder()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QTEST(inputs::ioCompare(a, b), "first");
    }

    void noNameUpsetsTheSorting()
    {
        // Many names, most of them of less than two parts, which all claim to come first.
        std::mt19937 random(1);
        const QStringList hostile{"", "_", "__", "DI", "DI1_", "_3", "\u6ca1", "DI99999999999_1"};
        QStringList names, shortNames;
        for (int i = 0; i < 500; ++i) {
            names.append(hostile[int(random() % 8)]);
            names.append(QString("DI%1_%2").arg(random() % 9).arg(random() % 9));
        }
        for (const QString &name : qAsConst(names)) {
            if (!name.contains('_'))
                shortNames.append(name);
        }
        inputs::sortInputs(names);
        QCOMPARE(names.mid(0, shortNames.size()), shortNames); // as they came
        for (int i = shortNames.size() + 1; i < names.size(); ++i)
            QVERIFY(!inputs::ioCompare(names[i], names[i - 1]));
    }

    void runningParameters_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QStringList>("outcome");
        const QString write = "set arc_weld.running_param";
        QTest::newRow("saved") << "" << QStringList{"info: save running parameter success", write};
        QTest::newRow("refused") << "refused"
                                 << QStringList{"error: save running parameter error. 7", write};
        QTest::newRow("no link") << "down" << QStringList{"error: tessa not connected"};
    }
    void runningParameters()
    {
        QFETCH(QString, fault);
        Desk desk;
        desk.spoil(fault, "arc_weld.running_param");
        desk.wireSpeed->setValue(3.5);
        desk.press("btn_baseSetSave");
        QTEST(desk.outcome(), "outcome");
        QCOMPARE(desk.wireSpeed->value(), 3.5);
        QVERIFY(desk.host.connect());
        QCOMPARE(desk.host.stored("arc_weld.running_param", "wire_feed_speed"),
                 fault.isEmpty() ? QVariant(3.5) : QVariant());
    }

    void theSensor()
    {
        Desk desk;
        QVERIFY(!desk.shield->isEnabled() && desk.input->isEnabled());
        desk.input->setCurrentIndex(3);
        desk.sensor->setChecked(true);
        QCOMPARE(desk.outcome(),
                 QStringList({"info: enable anti-collision device success",
                              "do arc_weld.set_anticollision"}));
        QVERIFY(desk.shield->isEnabled() && !desk.input->isEnabled());
        desk.shield->setChecked(true);
        QCOMPARE(desk.outcome(),
                 QStringList({"info: enable anti-collision device shielding success",
                              "do arc_weld.set_anticollision"}));
        QCOMPARE(desk.host.stored("arc_weld.anticollision_param").toMap(),
                 QVariantMap(
                     {{"enable", true}, {"block", true}, {"signal", desk.input->currentText()}}));
        desk.sensor->setChecked(false);
        QCOMPARE(desk.outcome(),
                 QStringList({"info: disable anti-collision device success",
                              "do arc_weld.set_anticollision"}));
        QVERIFY(!desk.shield->isChecked() && !desk.shield->isEnabled());
        QVERIFY(desk.input->isEnabled());
    }

    void aSwitchThatWasRefusedIsPutBack_data()
    {
        QTest::addColumn<bool>("shielding");
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QStringList>("outcome");
        const QString command = "do arc_weld.set_anticollision";
        for (const bool shielding : {false, true}) {
            const QString device =
                shielding ? "anti-collision device shielding error" : "anti-collision device error";
            QTest::addRow("%s, no link", shielding ? "shield" : "sensor")
                << shielding << "down" << QStringList("error: tessa not connected");
            QTest::addRow("%s, refused", shielding ? "shield" : "sensor")
                << shielding << "refused" << QStringList{"error: enable " + device, command};
        }
    }
    void aSwitchThatWasRefusedIsPutBack()
    {
        QFETCH(bool, shielding);
        QFETCH(QString, fault);
        Desk desk;
        if (shielding)
            desk.sensor->setChecked(true);
        desk.outcome();
        desk.spoil(fault, "arc_weld.set_anticollision");
        EnableButton *button = shielding ? desk.shield : desk.sensor;
        QSignalSpy signalled(button, &EnableButton::enabled);
        button->setChecked(true);
        QTEST(desk.outcome(), "outcome");
        QVERIFY(!button->isChecked());
        QCOMPARE(signalled.size(), 1);
        QCOMPARE(desk.shield->isEnabled(), shielding);
        QCOMPARE(desk.input->isEnabled(), !shielding);
        QVERIFY(!desk.page.anticollision().data()->r(shielding ? "block" : "enable")->getBool());
    }

    void theShieldFollowsTheController()
    {
        Desk desk;
        desk.sensor->setChecked(true);
        desk.outcome();
        for (const bool block : {true, false, true}) {
            desk.host.notify(stateNode, QVariantMap{{"enable", true}, {"block", block}});
            QCOMPARE(desk.shield->isChecked(), block);
        }
        QCOMPARE(desk.outcome(), QStringList());
        // Also what the controller itself tells, over the link.
        desk.shield->setChecked(false);
        QTRY_VERIFY(!desk.host.stored(stateNode, "block").toBool() && !desk.shield->isChecked());
    }

    void theClampingTorch_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QStringList>("outcome");
        const QString command = "do arc_weld.set_wire_clamping_torch_mode";
        QTest::newRow("open") << "Open"
                              << ""
                              << QStringList{"info: Open wire clamping torch mode success",
                                             command};
        QTest::newRow("close") << "Close"
                               << ""
                               << QStringList{"info: Close wire clamping torch mode success",
                                              command};
        QTest::newRow("refused") << "Open"
                                 << "refused"
                                 << QStringList{"error: Open wire clamping torch mode error",
                                                command};
        QTest::newRow("no link") << "Open"
                                 << "down" << QStringList("error: tessa not connected");
    }
    void theClampingTorch()
    {
        QFETCH(QString, mode);
        QFETCH(QString, fault);
        Desk desk;
        auto *input = child<QComboBox>(desk.page.wgt(), "cbx_DISelection");
        desk.spoil(fault, "arc_weld.set_wire_clamping_torch_mode");
        child<QComboBox>(desk.page.wgt(), "cbx_modeSwitch")->setCurrentText(mode);
        input->setCurrentText("DI2_5");
        desk.press("btn_wireTouchSave");
        QTEST(desk.outcome(), "outcome");
        QVERIFY(desk.host.connect());
        const QVariant stored = desk.host.stored("arc_weld.wire_clamping_torch_param");
        QCOMPARE(stored,
                 fault.isEmpty() ? QVariantMap({{"enable", mode == "Open"}, {"signal", "DI2_5"}})
                                 : QVariant());
        desk.page.initPage();
        QCOMPARE(input->currentText(), QString(fault.isEmpty() ? "DI2_5" : "No signal"));
    }

    void whatWasNeverReadIsNotWritten_data()
    {
        QTest::addColumn<QString>("set");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("message");
        QTest::newRow("running") << "running_param"
                                 << "btn_baseSetSave"
                                 << "error: save running parameter error. -1";
        QTest::newRow("torch") << "wire_clamping_torch_param"
                               << "btn_wireTouchSave"
                               << "error: Close wire clamping torch mode error";
        QTest::newRow("sensor") << "anticollision_param"
                                << "btn_antiCollisionSwitch"
                                << "error: enable anti-collision device error";
    }
    void whatWasNeverReadIsNotWritten()
    {
        QFETCH(QString, set);
        QFETCH(QString, button);
        QFETCH(QString, message);
        Desk desk("arc_weld." + set);
        desk.page.initPage();
        QVERIFY(desk.host.takeMessages().contains("error: " + set
                                                  + ": read parameter error [welding options]"));
        desk.host.faults()->clear();
        desk.host.takeRequests();
        child<QAbstractButton>(desk.page.wgt(), button)->click();
        QCOMPARE(desk.outcome(), QStringList(message));
        QVERIFY(!desk.host.stored("arc_weld." + set).isValid());
    }

    void aFailedReloadKeepsTheEdits()
    {
        Desk desk;
        desk.wireSpeed->setValue(7);
        auto *input = child<QComboBox>(desk.page.wgt(), "cbx_DISelection");
        input->setCurrentIndex(4);
        for (const char *set : {"running_param", "wire_clamping_torch_param"})
            desk.host.faults()->setCode(QString("arc_weld.") + set, 8);
        desk.page.initPage();
        QCOMPARE(desk.wireSpeed->value(), 7.0);
        QCOMPARE(input->currentIndex(), 4);
        QCOMPARE(desk.host.takeMessages().size(), 2);
    }
};

QTEST_MAIN(tst_OptionsPage)
#include "tst_optionspage.moc"
