
#include "tour/tour.h"

namespace tour {

namespace {

const QString saved = QStringLiteral("info: save parameter succeed");

void weldAndArcEnd(Tour &tour)
{
    tour.step("a welding file is saved and applied at once", "process-weld", [&] {
        tour.openSubPage("Process Setting");
        tour.choose("cbx_weldingParamFileNumber", "arcdata2");
        tour.type("sbxWeldCurrent", "210");
        tour.click("btn_weldFold");
        tour.chooseCode("cbxArcBreakOption", "stop_and_alarm");
        tour.click("btnWeldingSave");
        tour.requireStored("weld_param", "arcdata2", "current", "210");
        tour.click("btnWeldingEnable");
        return tour.requireMessage("info: enable succeed");
    });
    tour.step("an arc-end file is edited, dropped, edited and saved", "process-arc-end", [&] {
        tour.click("btn_arcoffFold");
        tour.type("sbxArcoffTime", "700");
        tour.click("btnArcOffCancel");
        tour.type("sbxArcoffDetectionTime", "4000");
        tour.click("btnArcOffSave");
        tour.requireStored("arcoff_param", "arcoffdata1", "hold_time", "500");
        return tour.requireStored("arcoff_param", "arcoffdata1", "detect_time", "4000");
    });
}

} // namespace

void processSetting(Tour &tour)
{
    tour.step("Arc Weld > Process Setting", "process-setting", [&] {
        tour.openSubPage("Process Setting");
        return tour.requireText("lblTitle", "Process Setting");
    });
    tour.step("a keypad and a keyboard for touched fields", "process-keyboard", [&] {
        const auto strike = [&](const QString &keys) {
            for (auto *key :
                 tour.find("btnPadEnter")->parentWidget()->findChildren<QPushButton *>())
                if (!key->text().isEmpty() && keys.contains(key->text()))
                    testsupport::finger::touch(key);
        };
        testsupport::finger::touch(tour.find("sbxArconCurrent")->findChild<QLineEdit *>());
        strike("9");
        tour.takePicture("process-keypad");
        tour.click("btnPadEnter");
        tour.click("ledt_arconAnnotaion");
        strike("s");
        return Tour::require(tour.find<QLineEdit>("ledt_arconAnnotaion")->text(), "s");
    });
    tour.step("arcondata3 is created with the defaults, edited and saved", "process-setting-saved",
              [&] {
                  tour.requireStored("arcon_param", "arcondata3", "current", {});
                  tour.choose("cbx_arconParamFileNumber", "arcondata3");
                  tour.requireStored("arcon_param", "arcondata3", "current", "0");
                  tour.type("sbxArconCurrent", "180");
                  tour.click("btn_arconFold");
                  tour.chooseCode("cbxReArconSwitch", true);
                  tour.click("btnArcOnSave");
                  tour.requireStored("arcon_param", "arcondata3", "current", "180");
                  tour.requireStored("arcon_param", "arcondata3", "re_arcon.enable", "true");
                  return tour.requireMessage(saved);
              });
}

void restart(Tour &tour)
{
    tour.step("closed and started again, the values are there", "process-setting-again", [&] {
        tour.restart();
        tour.openSubPage("Process Setting");
        tour.choose("cbx_arconParamFileNumber", "arcondata3");
        tour.click("btn_arconFold");
        const QString current = tour.find<QAbstractSpinBox>("sbxArconCurrent")->text();
        Tour::require(current.section('.', 0, 0), "180");
        return Tour::require(tour.find<QComboBox>("cbxReArconSwitch")->currentText(), "Open");
    });
}

void processConfiguration(Tour &tour)
{
    tour.step("the welder is chosen and enabled", "device-setting", [&] {
        tour.openSubPage("Device Setting");
        tour.chooseCode("cbx_type", "RP/RPH");
        tour.choose("cbx_current", "500A");
        tour.click("btn_weatherConnectWelder");
        tour.click("btn_connectSwitch");
        tour.requireStored("welder_setting", {}, "current_type", "500");
        return tour.requireMessage("info: enable device success");
    });
    tour.step("running parameters and the collision sensor", "welding-options", [&] {
        tour.openSubPage("Welding Options");
        tour.type("sbx_emptyRunningCartSpeed", "120");
        tour.click("btn_baseSetSave");
        tour.requireStored("running_param", {}, "test_run_speed", "120");
        tour.click("btn_antiCollisionSwitch");
        return tour.requireMessage("info: enable anti-collision device success");
    });
    weldAndArcEnd(tour);
    tour.step("a weave that is too fast is refused, a slower one saved", "weave-function", [&] {
        tour.openSubPage("Weave Function");
        tour.choose("cbxWeaveFileNumber", "weavedata4");
        tour.type("sbxWeaveLength_Frequency", "5");
        tour.type("sbxWeaveAmplitude", "12");
        tour.click("btnSave");
        tour.requireMessage(
            "error: The frequency multiplied by the amplitude must be less than 50");
        tour.type("sbxWeaveAmplitude", "3");
        tour.click("btnSave");
        tour.requireStored("weave_param", "weavedata4", "amplitude.right", "3");
        return tour.requireMessage(saved);
    });
}

} // namespace tour
