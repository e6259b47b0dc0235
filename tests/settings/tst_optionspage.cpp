#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

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
            if (!request.startsWith("watch") && !request.startsWith("get"))
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
        const Rows<bool, int> signalRows{{"DI2_1", false, 1},
                                         {"DI1_10", false, 1},
                                         {"DI1_2", false, 1},
                                         {"DI1_1", true, 1},
                                         {"DO1_3", false, 2}};
        for (const auto &[name, taken, type] : signalRows) {
            list->c(name, true)->set(this, "is_default_IO", taken);
            list->c(name)->set(this, "signal_type", type);
        }
        desk.page.initPage();
        QStringList names;
        for (int i = 0; i < desk.input->count(); ++i)
            names.append(desk.input->itemText(i));
        QCOMPARE(names.join(' '), "No signal DI1_2 DI1_10 DI2_1");
    }
    // Names of less than two parts all claim to come first; they stay as they came.
    void inputOrder()
    {
        QStringList names{"DI2_1", "x", "DI1_10", "\u6ca1", "DI1_2", "", "DI99999999999_1", "_3"};
        inputs::sortInputs(names);
        QCOMPARE(names.join('|'), "x|\u6ca1||DI99999999999_1|_3|DI1_2|DI1_10|DI2_1");
    }
    void savedOrRefused()
    {
        const QString write = "set arc_weld.running_param";
        const QString torch = "do arc_weld.set_wire_clamping_torch_mode";
        const QString mode = " wire clamping torch mode ";
        const Rows<FormHost::Failure, QString, QString> rows{
            {"saved", works, "info: save running parameter success|" + write,
             "info: Open" + mode + "success|" + torch},
            {"refused", FormHost::Refused, "error: save running parameter error. 7|" + write,
             "error: Open" + mode + "error|" + torch},
            {"no link", FormHost::LinkDown, "error: tessa not connected []",
             "error: tessa not connected []"},
        };
        for (const auto &[name, failure, running, clamping] : rows) {
            Desk desk;
            desk.host.spoil(failure, write);
            desk.host.spoil(failure, torch);
            desk.wireSpeed->setValue(3.5);
            desk.press("btn_baseSetSave");
            QCOMPARE(desk.outcome().join('|'), running);
            child<QComboBox>(desk.page.wgt(), "cbx_modeSwitch")->setCurrentText("Open");
            desk.torchInput->setCurrentText("DI2_5");
            desk.press("btn_wireTouchSave");
            QCOMPARE(desk.outcome().join('|'), clamping);
            QCOMPARE(desk.wireSpeed->value(), 3.5);
            QVERIFY(desk.host.mend());
            const bool isStored = failure == works;
            QCOMPARE(desk.host.stored("arc_weld.running_param", "wire_feed_speed"),
                     isStored ? QVariant(3.5) : QVariant());
            QCOMPARE(desk.host.stored("arc_weld.wire_clamping_torch_param").toMap(),
                     isStored ? (QVariantMap{{"enable", true}, {"signal", "DI2_5"}})
                              : QVariantMap());
            desk.page.initPage();
            QCOMPARE(desk.torchInput->currentText(), isStored ? "DI2_5" : "No signal");
        }
    }
    // The text is stored as it is shown, and the next pendant may show another language.
    void noSignalIsKnownInEveryLanguage()
    {
        Desk desk;
        for (const char *stored : {"No signal", "无信号"}) {
            desk.input->setCurrentText("DI2_3");
            desk.host.link()->answers["get arc_weld.anticollision_param"] =
                QVariantMap{{"signal", stored}};
            desk.page.initPage();
            QCOMPARE(desk.input->currentText(), "No signal");
            QCOMPARE(desk.outcome(),
                     QStringList("warning: anticollision_param: changes were not saved"));
        }
    }
    void theSensor()
    {
        Desk desk;
        QVERIFY(!desk.shield->isEnabled() && desk.input->isEnabled());
        desk.input->setCurrentText("DI2_3");
        desk.sensor->setChecked(true);
        QCOMPARE(desk.outcome().join('|'),
                 "info: enable anti-collision device success|" + setSensor);
        QVERIFY(desk.shield->isEnabled() && !desk.input->isEnabled());
        desk.shield->setChecked(true);
        QCOMPARE(desk.outcome().join('|'),
                 "info: enable anti-collision device shielding success|" + setSensor);
        QCOMPARE(desk.host.stored("arc_weld.anticollision_param").toMap(),
                 QVariantMap({{"enable", true}, {"block", true}, {"signal", "DI2_3"}}));
        for (const bool block : {false, true}) { // and follows the controller
            desk.host.notify("arc_weld.anticollision_state",
                             QVariantMap{{"enable", true}, {"block", block}});
            QCOMPARE(desk.shield->isChecked(), block);
        }
        desk.sensor->setChecked(false);
        QCOMPARE(desk.outcome().join('|'),
                 "info: disable anti-collision device success|" + setSensor);
        QVERIFY(!desk.shield->isChecked() && !desk.shield->isEnabled());
        QVERIFY(desk.input->isEnabled());
        // The next "on" carries no shield that nobody asked for.
        QCOMPARE(desk.page.anticollision().data()->r("block")->getBool(true), false);
        desk.sensor->setChecked(true);
        QCOMPARE(desk.host.link()->lastPayload.toMap()["block"], QVariant(false));
        QCOMPARE(desk.outcome().last(), setSensor);
    }
    void theHintFollowsTheWelder()
    {
        Desk desk;
        const auto *hint = child(desk.page.wgt(), "lblWelderHint");
        xservice()->watch(this, "arc_weld.welder_state", true); // the arc-weld page does, for all
        for (const auto &[state, shown] :
             {std::pair{"ok", false}, {"error", true}, {"ok", false}}) {
            desk.host.notify("arc_weld.welder_state", QVariantMap{{"state", state}});
            QCOMPARE(!hint->isHidden(), shown);
        }
        desk.host.notify("arc_weld.welder_state", QVariantMap{{"current", 120}});
        QVERIFY(hint->isHidden());
    }
    // Shown at once, but not where it is being edited; a save undoes nobody's.
    void whatAnotherPendantSavedIsShownAndNotUndone()
    {
        Desk desk;
        auto *dryRun = child<QSpinBox>(desk.page.wgt(), "sbx_emptyRunningCartSpeed");
        const QString node = "arc_weld.running_param";
        const auto theirs = [](int dry, double wire) {
            return QVariantMap{
                {"test_run_speed", dry}, {"wire_feed_speed", wire}, {"gas_detect_time", 15}};
        };
        desk.host.store(node, {}, theirs(120, 2));
        QTRY_COMPARE(dryRun->value(), 120);
        desk.wireSpeed->setValue(7);
        desk.host.store(node, {}, theirs(130, 2));
        QTRY_COMPARE(dryRun->value(), 130);
        QCOMPARE(desk.wireSpeed->value(), 7.0);
        desk.host.store(node, {}, theirs(140, 2)); // the save comes before the news
        desk.press("btn_baseSetSave");
        QCOMPARE(desk.host.stored(node).toMap(), theirs(140, 7));
        desk.wireSpeed->setValue(8);
        desk.outcome();
        desk.host.store(node, {}, theirs(140, 3));
        desk.press("btn_baseSetSave");
        QVERIFY(desk.outcome().first().contains("\"wire_feed_speed\" was changed elsewhere to 3"));
        QCOMPARE(desk.host.stored(node).toMap(), theirs(140, 3));
        desk.press("btn_baseSetSave");
        QCOMPARE(desk.host.stored(node).toMap(), theirs(140, 8));
        desk.host.link()->answers["do arc_weld.set_anticollision"] = 0;
        desk.host.notify("arc_weld.anticollision_param", QVariantMap{{"enable", true}});
        QVERIFY(desk.sensor->isChecked() && desk.shield->isEnabled());
    }
    void anInputThatIsGoneIsToldOnce()
    {
        Desk desk;
        desk.host.link()->answers["get arc_weld.anticollision_param"] =
            QVariantMap{{"signal", "DI9_9"}};
        desk.page.initPage();
        QVERIFY(desk.outcome().join('|').contains("DI9_9"));
        desk.page.initPage();
        QVERIFY(!desk.outcome().join('|').contains("DI9_9"));
    }
    void aSwitchThatWasRefusedIsPutBack()
    {
        const QString error = "error: enable anti-collision device ";
        const Rows<FormHost::Failure, bool, QString> rows{
            {"sensor, no link", FormHost::LinkDown, false, "error: tessa not connected []"},
            {"sensor, refused", FormHost::Refused, false, error + "error|" + setSensor},
            {"shield, no link", FormHost::LinkDown, true, "error: tessa not connected []"},
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
            const char *key = shielding ? "block" : "enable";
            QVERIFY(!desk.page.anticollision().data()->r(key)->getBool());
        }
    }
    void whatWasNeverReadIsNotWritten()
    {
        const Rows<QString, QString> rows{
            {"running_param", "btn_baseSetSave", "error: save running parameter error. -1"},
            {"wire_clamping_torch_param", "btn_wireTouchSave",
             "error: Close wire clamping torch mode error"},
            {"anticollision_param", "btn_antiCollisionSwitch", ""}, // is grey
        };
        for (const auto &[set, button, message] : rows) {
            Desk desk("arc_weld." + set);
            desk.wireSpeed->setValue(7);
            desk.page.initPage();
            QVERIFY(desk.outcome().contains("error: " + set + ": read parameter error"));
            QCOMPARE(desk.wireSpeed->value() == 7, set == "running_param"); // edits stay
            desk.host.faults()->clear();
            const auto hints = desk.page.wgt()->findChildren<QLabel *>("lblNotRead");
            QCOMPARE(std::count_if(hints.begin(), hints.end(),
                                   [](const QLabel *hint) { return !hint->isHidden(); }),
                     1);
            desk.press(button);
            QCOMPARE(desk.outcome().join('|'), message);
            QVERIFY(!desk.host.stored("arc_weld." + set).isValid());
            desk.page.initPage();
            QVERIFY(child(desk.page.wgt(), "btn_antiCollisionSwitch")->isEnabled());
        }
    }
};

QTEST_MAIN(tst_OptionsPage)
#include "tst_optionspage.moc"
