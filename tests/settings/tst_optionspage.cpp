#include <QLabel>
#include <QtTest>

#include "data/inputs.h"
#include "settings/weldingoptionspage.h"
#include "support/datarows.h"
#include "support/formhost.h"
#include "vu/switchbutton.h"

using namespace welmo;
using namespace testsupport;

namespace {

const QString noLink = QStringLiteral("error: tessa not connected []");
const QString setRunning = QStringLiteral("set arc_weld.running_param");
const QString setTorch = QStringLiteral("do arc_weld.set_wire_clamping_torch_mode");
const QString setSensor = QStringLiteral("do arc_weld.set_anticollision");

struct Fixture
{
    FormHost host;
    WeldingOptionsPage page;
    EnableButton *sensor = child<EnableButton>(page.wgt(), "btn_antiCollisionSwitch");
    EnableButton *shield = child<EnableButton>(page.wgt(), "btn_antiCollisionShield");
    QComboBox *input = child<QComboBox>(page.wgt(), "cbx_DISelection_anti");
    QComboBox *torchInput = child<QComboBox>(page.wgt(), "cbx_DISelection");
    QDoubleSpinBox *wireSpeed = child<QDoubleSpinBox>(page.wgt(), "sbx_wireSpeed");

    explicit Fixture(const QString &unreadable = {})
        : page((host.faults()->setCode(unreadable, 8), host.window()), host.window())
    {
        page.initPage();
        outcome();
    }
    void press(const QString &button) const { child<QAbstractButton>(page.wgt(), button)->click(); }
    /// What the page said, then what it sent to the controller.
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

/// The three groups of options: running, clamping the torch, collision sensor.
class tst_OptionsPage : public QObject
{
    Q_OBJECT

private slots:
    void onlyFreeInputsAreOffered()
    {
        Fixture ui;
        kelp::ModuleObject *list = m("orbo.robot.io.signal_detail");
        list->copyFrom(this, std::make_unique<kelp::ModuleObject>("none").get());
        for (const QString &name : QStringList{"DI2_1", "DI1_10", "DI1_2", "DI1_1", "DO1_3"}) {
            list->c(name, true)->set(this, "is_default_IO", name == "DI1_1");
            list->c(name)->set(this, "signal_type", name.startsWith("DI") ? 1 : 2);
        }
        ui.page.initPage();
        QCOMPARE(itemsOf(ui.input), "No signal|DI1_2|DI1_10|DI2_1");
    }
    // A name without two parts comes before the others; several such keep their order.
    void inputOrder()
    {
        QStringList names{"DI2_1", "x", "DI1_10", "\u6ca1", "DI1_2", "", "DI99999999999_1", "_3"};
        inputs::sortInputs(names);
        QCOMPARE(names.join('|'), "x|\u6ca1||DI99999999999_1|_3|DI1_2|DI1_10|DI2_1");
    }
    void savedOrRefused_data()
    {
        const QString mode = " wire clamping torch mode ";
        addRows<FormHost::Failure, QString, QString>(
            {{"saved", FormHost::NoFailure, "info: save running parameter success|" + setRunning,
              "info: Open" + mode + "success|" + setTorch},
             {"refused", FormHost::Refused, "error: save running parameter error. 7|" + setRunning,
              "error: Open" + mode + "error|" + setTorch},
             {"no link", FormHost::LinkDown, noLink, noLink}});
    }
    void savedOrRefused()
    {
        const auto &[name, failure, running, clamping] =
            currentRow<FormHost::Failure, QString, QString>();
        Fixture ui;
        ui.host.spoil(failure, setRunning);
        ui.host.spoil(failure, setTorch);
        ui.wireSpeed->setValue(3.5);
        ui.press("btn_baseSetSave");
        QCOMPARE(ui.outcome().join('|'), running);
        child<QComboBox>(ui.page.wgt(), "cbx_modeSwitch")->setCurrentText("Open");
        ui.torchInput->setCurrentText("DI2_5");
        ui.press("btn_wireTouchSave");
        QCOMPARE(ui.outcome().join('|'), clamping);
        QCOMPARE(ui.wireSpeed->value(), 3.5);
        QVERIFY(ui.host.mend());
        const bool isStored = failure == FormHost::NoFailure;
        QCOMPARE(ui.host.stored("arc_weld.running_param", "wire_feed_speed"),
                 isStored ? QVariant(3.5) : QVariant());
        QCOMPARE(ui.host.stored("arc_weld.wire_clamping_torch_param").toMap(),
                 isStored ? (QVariantMap{{"enable", true}, {"signal", "DI2_5"}}) : QVariantMap());
        ui.page.initPage();
        // A refused value is replaced by the stored one, a lost link leaves the edit.
        QCOMPARE(ui.torchInput->currentText(),
                 failure == FormHost::Refused ? "No signal" : "DI2_5");
    }
    // The text is stored in the language of the pendant that saved it.
    void noSignalIsKnownInEveryLanguage()
    {
        Fixture ui;
        for (const char *stored : {"No signal", "无信号"}) {
            ui.input->setCurrentText("DI2_3");
            ui.host.link()->answers["get arc_weld.anticollision_param"] =
                QVariantMap{{"signal", stored}};
            ui.page.initPage();
            QCOMPARE(ui.input->currentText(), "No signal");
            QCOMPARE(ui.outcome(),
                     QStringList("warning: anticollision_param: changes were not saved"));
        }
    }
    void theSensor()
    {
        Fixture ui;
        QVERIFY(!ui.shield->isEnabled() && ui.input->isEnabled());
        ui.input->setCurrentText("DI2_3");
        ui.sensor->setChecked(true);
        QCOMPARE(ui.outcome().join('|'), "info: enable anti-collision device success|" + setSensor);
        QVERIFY(ui.shield->isEnabled() && !ui.input->isEnabled());
        ui.shield->setChecked(true);
        QCOMPARE(ui.outcome().join('|'),
                 "info: enable anti-collision device shielding success|" + setSensor);
        QCOMPARE(ui.host.stored("arc_weld.anticollision_param").toMap(),
                 QVariantMap({{"enable", true}, {"block", true}, {"signal", "DI2_3"}}));
        for (const bool block : {false, true}) { // the switch follows the controller
            ui.host.notify("arc_weld.anticollision_state",
                           QVariantMap{{"enable", true}, {"block", block}});
            QCOMPARE(ui.shield->isChecked(), block);
        }
        ui.sensor->setChecked(false);
        QCOMPARE(ui.outcome().join('|'),
                 "info: disable anti-collision device success|" + setSensor);
        QVERIFY(!ui.shield->isChecked() && !ui.shield->isEnabled());
        QVERIFY(ui.input->isEnabled());
        // Switching on again must not switch the shield on.
        QCOMPARE(ui.page.anticollision().data()->r("block")->getBool(true), false);
        ui.sensor->setChecked(true);
        QCOMPARE(ui.host.link()->lastPayload.toMap()["block"], QVariant(false));
        QCOMPARE(ui.outcome().constLast(), setSensor);
    }
    void theHintFollowsTheWelder()
    {
        Fixture ui;
        const auto *hint = child(ui.page.wgt(), "lblWelderHint");
        xservice()->watch(this, "arc_weld.welder_state", true); // in the place of the arc-weld page
        for (const auto &[state, shown] :
             {std::pair{"ok", false}, {"error", true}, {"ok", false}}) {
            ui.host.notify("arc_weld.welder_state", QVariantMap{{"state", state}});
            QCOMPARE(!hint->isHidden(), shown);
        }
        ui.host.notify("arc_weld.welder_state", QVariantMap{{"current", 120}});
        QVERIFY(hint->isHidden());
    }
    // Another pendant's values are shown unless they are being edited, and no save undoes them.
    void whatAnotherPendantSavedIsShownAndNotUndone()
    {
        Fixture ui;
        auto *dryRun = child<QSpinBox>(ui.page.wgt(), "sbx_emptyRunningCartSpeed");
        const QString node = "arc_weld.running_param";
        const auto theirs = [](int dry, double wire) {
            return QVariantMap{
                {"test_run_speed", dry}, {"wire_feed_speed", wire}, {"gas_detect_time", 15}};
        };
        ui.host.store(node, {}, theirs(120, 2));
        QTRY_COMPARE(dryRun->value(), 120);
        ui.wireSpeed->setValue(7);
        ui.host.store(node, {}, theirs(130, 2));
        QTRY_COMPARE(dryRun->value(), 130);
        QCOMPARE(ui.wireSpeed->value(), 7.0);
        ui.host.store(node, {}, theirs(140, 2)); // the page hears of it after the save
        ui.press("btn_baseSetSave");
        QCOMPARE(ui.host.stored(node).toMap(), theirs(140, 7));
        ui.wireSpeed->setValue(8);
        ui.outcome();
        ui.host.store(node, {}, theirs(140, 3));
        ui.press("btn_baseSetSave");
        QVERIFY(ui.outcome().constFirst().contains("Speed\" was changed elsewhere to 3"));
        QCOMPARE(ui.host.stored(node).toMap(), theirs(140, 3));
        ui.press("btn_baseSetSave");
        QCOMPARE(ui.host.stored(node).toMap(), theirs(140, 8));
        ui.host.link()->answers["do arc_weld.set_anticollision"] = 0;
        ui.host.notify("arc_weld.anticollision_param", QVariantMap{{"enable", true}});
        QVERIFY(ui.sensor->isChecked() && ui.shield->isEnabled());
    }
    void anInputThatIsGoneIsToldOnce()
    {
        Fixture ui;
        ui.host.link()->answers["get arc_weld.anticollision_param"] =
            QVariantMap{{"signal", "DI9_9"}};
        ui.page.initPage();
        QVERIFY(ui.outcome().join('|').contains("DI9_9"));
        ui.page.initPage();
        QVERIFY(!ui.outcome().join('|').contains("DI9_9"));
    }
    void aSwitchThatWasRefusedIsPutBack_data()
    {
        const QString error = "error: enable anti-collision device ";
        addRows<FormHost::Failure, bool, QString>(
            {{"sensor, no link", FormHost::LinkDown, false, noLink},
             {"sensor, refused", FormHost::Refused, false, error + "error|" + setSensor},
             {"shield, no link", FormHost::LinkDown, true, noLink},
             {"shield, refused", FormHost::Refused, true, error + "shielding error|" + setSensor}});
    }
    void aSwitchThatWasRefusedIsPutBack()
    {
        const auto &[name, failure, shielding, outcome] =
            currentRow<FormHost::Failure, bool, QString>();
        Fixture ui;
        if (shielding)
            ui.sensor->setChecked(true);
        ui.outcome();
        ui.host.spoil(failure, setSensor);
        EnableButton *button = shielding ? ui.shield : ui.sensor;
        QSignalSpy signalled(button, &EnableButton::enabled);
        button->setChecked(true);
        QCOMPARE(ui.outcome().join('|'), outcome);
        QVERIFY(!button->isChecked());
        QCOMPARE(signalled.size(), 1);
        QCOMPARE(ui.shield->isEnabled(), shielding);
        QCOMPARE(ui.input->isEnabled(), !shielding);
        const char *key = shielding ? "block" : "enable";
        QVERIFY(!ui.page.anticollision().data()->r(key)->getBool());
    }
    void whatWasNeverReadIsNotWritten_data()
    {
        addRows<QString, QString>(
            {{"running_param", "btn_baseSetSave", "error: save running parameter error. -1"},
             {"wire_clamping_torch_param", "btn_wireTouchSave",
              "error: Close wire clamping torch mode error"},
             {"anticollision_param", "btn_antiCollisionSwitch", ""}});
    }
    void whatWasNeverReadIsNotWritten()
    {
        const auto &[set, button, message] = currentRow<QString, QString>();
        Fixture ui("arc_weld." + set);
        ui.wireSpeed->setValue(7);
        ui.page.initPage();
        QVERIFY(ui.outcome().contains("error: " + set + ": read parameter error"));
        QCOMPARE(ui.wireSpeed->value() == 7, set == "running_param"); // which is an edit
        ui.host.faults()->clear();
        const auto hints = ui.page.wgt()->findChildren<QLabel *>("lblNotRead");
        QCOMPARE(std::count_if(hints.begin(), hints.end(),
                               [](const QLabel *hint) { return !hint->isHidden(); }),
                 1);
        ui.press(button);
        QCOMPARE(ui.outcome().join('|'), message);
        QVERIFY(!ui.host.stored("arc_weld." + set).isValid());
        ui.page.initPage();
        QVERIFY(child(ui.page.wgt(), "btn_antiCollisionSwitch")->isEnabled());
    }
};

QTEST_MAIN(tst_OptionsPage)
#include "tst_optionspage.moc"
