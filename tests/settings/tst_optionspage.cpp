#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QtTest>
#include <random>

#include "data/inputs.h"
#include "settings/weldingoptionspage.h"
#include "support/formhost.h"
#include "support/rows.h"
#include "vu/switchbutton.h"

using namespace welmo;
using testsupport::child;
using testsupport::FormHost;
using testsupport::Rows;

namespace {

const QString stateNode = QStringLiteral("arc_weld.anticollision_state");
constexpr auto works = FormHost::NoFailure;
const QString setSensor = QStringLiteral("do arc_weld.set_anticollision");

struct Desk
{
    FormHost host;
    WeldingOptionsPage page;
    EnableButton *sensor = child<EnableButton>(page.wgt(), "btn_antiCollisionSwitch");
    EnableButton *shield = child<EnableButton>(page.wgt(), "btn_antiCollisionShield");
    QComboBox *input = child<QComboBox>(page.wgt(), "cbx_DISelection_anti");
    QComboBox *torchInput = child<QComboBox>(page.wgt(), "cbx_DISelection");
    QDoubleSpinBox *wireSpeed = child<QDoubleSpinBox>(page.wgt(), "sbx_wireSpeed");

    explicit Desk(const QString &unreadable = {})
        : page((host.faults()->setCode(unreadable, 8), host.window()), host.window())
    {
        page.initPage();
        outcome();
    }
    void press(const QString &button) const { child<QAbstractButton>(page.wgt(), button)->click(); }
    /// What was said by the page and, behind it, what was sent.
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
        const auto add = [this, list](const char *name, bool taken, int type) {
            list->c(name, true)->set(this, "is_default_IO", taken);
            list->c(name)->set(this, "signal_type", type);
        };
        for (const char *name : {"DI2_1", "DI1_10", "DI1_2"})
            add(name, false, 1);
        add("DI1_1", true, 1);
        add("DO1_3", false, 2);
        const QStringList names{"No signal", "DI1_2", "DI1_10", "DI2_1"};
        QCOMPARE(inputs::getDIRange(), names);
        desk.page.initPage();
        for (int i = 0; i < desk.input->count(); ++i)
            QCOMPARE(desk.input->itemText(i), names.value(i));
    }
    void inputOrder()
    {
        using inputs::ioCompare;
        QVERIFY(ioCompare("No signal", "DI1_1") && !ioCompare("DI1_1", "No signal"));
        QVERIFY(ioCompare("b", "a")); // of two short names, the one that is asked
        QVERIFY(ioCompare("DI2_1", "DI10_1") && !ioCompare("DI10_1", "DI2_1"));
        QVERIFY(ioCompare("DI1_9", "DI1_10") && !ioCompare("DI1_10", "DI1_9"));
        QVERIFY(!ioCompare("DI1_1", "DI1_1"));
        QVERIFY(ioCompare("_", "DI1_0") && ioCompare("DIx_y", "DI0_1")); // no numbers count as 0
        QVERIFY(ioCompare("DI1_2_9", "DI1_3_1"));

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
            QVERIFY(!ioCompare(names[i], names[i - 1]));
    }
    void runningParameters()
    {
        const QString write = "set arc_weld.running_param";
        const Rows<FormHost::Failure, QString> rows{
            {"saved", works, "info: save running parameter success|" + write},
            {"refused", FormHost::Refused, "error: save running parameter error. 7|" + write},
            {"no link", FormHost::LinkDown, "error: tessa not connected"},
        };
        for (const auto &[name, failure, outcome] : rows) {
            Desk desk;
            desk.host.spoil(failure, write);
            desk.wireSpeed->setValue(3.5);
            desk.press("btn_baseSetSave");
            QCOMPARE(desk.outcome().join('|'), outcome);
            QCOMPARE(desk.wireSpeed->value(), 3.5);
            QVERIFY(desk.host.mend());
            QCOMPARE(desk.host.stored("arc_weld.running_param", "wire_feed_speed"),
                     failure == works ? QVariant(3.5) : QVariant());
        }
    }
    void theSensor()
    {
        Desk desk;
        QVERIFY(!desk.shield->isEnabled() && desk.input->isEnabled());
        desk.input->setCurrentText("DI2_3");
        desk.sensor->setChecked(true);
        QCOMPARE(desk.outcome(),
                 QStringList({"info: enable anti-collision device success", setSensor}));
        QVERIFY(desk.shield->isEnabled() && !desk.input->isEnabled());
        desk.shield->setChecked(true);
        QCOMPARE(desk.outcome(),
                 QStringList({"info: enable anti-collision device shielding success", setSensor}));
        QCOMPARE(desk.host.stored("arc_weld.anticollision_param").toMap(),
                 QVariantMap({{"enable", true}, {"block", true}, {"signal", "DI2_3"}}));
        desk.sensor->setChecked(false);
        QCOMPARE(desk.outcome(),
                 QStringList({"info: disable anti-collision device success", setSensor}));
        QVERIFY(!desk.shield->isChecked() && !desk.shield->isEnabled());
        QVERIFY(desk.input->isEnabled());
    }
    void aSwitchThatWasRefusedIsPutBack()
    {
        const QString error = "error: enable anti-collision device ";
        const Rows<FormHost::Failure, bool, QString> rows{
            {"sensor, no link", FormHost::LinkDown, false, "error: tessa not connected"},
            {"sensor, refused", FormHost::Refused, false, error + "error|" + setSensor},
            {"shield, no link", FormHost::LinkDown, true, "error: tessa not connected"},
            {"shield, refused", FormHost::Refused, true, error + "shielding error|" + setSensor},
        };
        for (const auto &[name, failure, shielding, outcome] : rows) {
            Desk desk;
            if (shielding)
                desk.sensor->setChecked(true);
            desk.outcome();
            desk.host.spoil(failure, setSensor);
            EnableButton *button = shielding ? desk.shield : desk.sensor;
            QSignalSpy signalled(button, &EnableButton::enabled);
            button->setChecked(true);
            QCOMPARE(desk.outcome().join('|'), outcome);
            QVERIFY(!button->isChecked());
            QCOMPARE(signalled.size(), 1);
            QCOMPARE(desk.shield->isEnabled(), shielding);
            QCOMPARE(desk.input->isEnabled(), !shielding);
            QVERIFY(
                !desk.page.anticollision().data()->r(shielding ? "block" : "enable")->getBool());
        }
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
    }
    void theClampingTorch()
    {
        const QString command = "do arc_weld.set_wire_clamping_torch_mode";
        const QString tail = " wire clamping torch mode ";
        const Rows<FormHost::Failure, QString, QString> rows{
            {"open", works, "Open", "info: Open" + tail + "success|" + command},
            {"close", works, "Close", "info: Close" + tail + "success|" + command},
            {"refused", FormHost::Refused, "Open", "error: Open" + tail + "error|" + command},
            {"no link", FormHost::LinkDown, "Open", "error: tessa not connected"},
        };
        for (const auto &[name, failure, mode, outcome] : rows) {
            Desk desk;
            desk.host.spoil(failure, command);
            child<QComboBox>(desk.page.wgt(), "cbx_modeSwitch")->setCurrentText(mode);
            desk.torchInput->setCurrentText("DI2_5");
            desk.press("btn_wireTouchSave");
            QCOMPARE(desk.outcome().join('|'), outcome);
            QVERIFY(desk.host.mend());
            QVariantMap expected{{"enable", mode == "Open"}, {"signal", "DI2_5"}};
            if (failure != works)
                expected.clear();
            QCOMPARE(desk.host.stored("arc_weld.wire_clamping_torch_param").toMap(), expected);
            desk.page.initPage();
            QCOMPARE(desk.torchInput->currentText(),
                     QString(failure == works ? "DI2_5" : "No signal"));
        }
    }
    void whatWasNeverReadIsNotWritten()
    {
        const Rows<QString, QString> rows{
            {"running_param", "btn_baseSetSave", "error: save running parameter error. -1"},
            {"wire_clamping_torch_param", "btn_wireTouchSave",
             "error: Close wire clamping torch mode error"},
            {"anticollision_param", "btn_antiCollisionSwitch",
             "error: enable anti-collision device error"},
        };
        for (const auto &[set, button, message] : rows) {
            Desk desk("arc_weld." + set);
            desk.page.initPage();
            QVERIFY(desk.outcome().contains("error: " + set + ": read parameter error"));
            desk.host.faults()->clear();
            desk.press(button);
            QCOMPARE(desk.outcome(), QStringList(message));
            QVERIFY(!desk.host.stored("arc_weld." + set).isValid());
        }
    }
    void aFailedReloadKeepsTheEdits()
    {
        Desk desk;
        desk.wireSpeed->setValue(7);
        desk.torchInput->setCurrentIndex(4);
        for (const char *set : {"running_param", "wire_clamping_torch_param"})
            desk.host.faults()->setCode(QString("arc_weld.") + set, 8);
        desk.page.initPage();
        QCOMPARE(desk.wireSpeed->value(), 7.0);
        QCOMPARE(desk.torchInput->currentIndex(), 4);
        QCOMPARE(desk.host.takeMessages().size(), 2);
    }
};

QTEST_MAIN(tst_OptionsPage)
#include "tst_optionspage.moc"
