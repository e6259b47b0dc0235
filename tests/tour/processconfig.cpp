#include "tour/pages.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

namespace {

QString stored(Tour &tour, const QString &node, const QString &file, const QString &key)
{
    return tour.pendant().host()->service()->get(nullptr, node, file)->r(key)->getString();
}

void device(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("the welder is chosen and enabled", [&] {
        openSubPage(pendant, "Device Setting");
        pendant.chooseCode("cbx_type", "RP/RPH");
        pendant.choose("cbx_current", "500A");
        pendant.click("btn_connectSwitch");
        Tour::require(stored(tour, "arc_weld.welder_setting", {}, "current_type"), "500");
        return Tour::require(pendant.lastMessage(), "info: enable device success");
    });
    tour.picture("device-setting");
}

void options(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("running parameters and the collision sensor", [&] {
        openSubPage(pendant, "Welding Options");
        pendant.type("sbx_emptyRunningCartSpeed", "120");
        pendant.click("btn_baseSetSave");
        Tour::require(pendant.lastMessage(), "info: save running parameter success");
        Tour::require(stored(tour, "arc_weld.running_param", {}, "test_run_speed"), "120");
        pendant.click("btn_antiCollisionSwitch");
        return Tour::require(pendant.lastMessage(), "info: enable anti-collision device success");
    });
    tour.picture("welding-options");
}

void weldAndArcEnd(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("a welding file is saved and applied at once", [&] {
        openSubPage(pendant, "Process Setting");
        pendant.choose("cbx_weldingParamFileNumber", "arcdata2");
        pendant.type("sbxWeldCurrent", "210");
        pendant.click("btn_weldFold");
        pendant.chooseCode("cbxArcBreakOption", "stop_and_alarm");
        pendant.click("btnWeldingSave");
        Tour::require(stored(tour, "arc_weld.weld_param", "arcdata2", "current"), "210");
        pendant.click("btnWeldingEnable");
        return Tour::require(pendant.lastMessage(), "info: enable succeed");
    });
    tour.picture("process-weld");
    tour.step("an arc-end file is edited, dropped, edited and saved", [&] {
        pendant.click("btn_arcoffFold");
        pendant.type("sbxArcoffTime", "700");
        pendant.click("btnArcOffCancel");
        pendant.type("sbxArcoffDetectionTime", "4000");
        pendant.click("btnArcOffSave");
        Tour::require(stored(tour, "arc_weld.arcoff_param", "arcoffdata1", "hold_time"), "500");
        return Tour::require(stored(tour, "arc_weld.arcoff_param", "arcoffdata1", "detect_time"),
                             "4000");
    });
    tour.picture("process-arc-end");
}

void weave(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("a weave that is too fast is refused, a slower one saved", [&] {
        openSubPage(pendant, "Weave Function");
        pendant.choose("cbxWeaveFileNumber", "weavedata4");
        pendant.type("sbxWeaveLength_Frequency", "5");
        pendant.type("sbxWeaveAmplitude", "12");
        pendant.click("btnSave");
        Tour::require(pendant.lastMessage(),
                      "error: The frequency multiplied by the amplitude must be less than 50");
        pendant.type("sbxWeaveAmplitude", "3");
        pendant.click("btnSave");
        Tour::require(stored(tour, "arc_weld.weave_param", "weavedata4", "amplitude.right"), "3");
        return Tour::require(pendant.lastMessage(), "info: save parameter succeed");
    });
    tour.picture("weave-function");
}

} // namespace

void processConfiguration(Tour &tour)
{
    device(tour);
    options(tour);
    weldAndArcEnd(tour);
    weave(tour);
}

} // namespace tour
