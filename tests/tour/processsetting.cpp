#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>

#include "tour/pages.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

namespace {

// What the controller keeps, which is not what the page shows.
QString stored(Tour &tour, const QString &key)
{
    auto *service = tour.pendant().host()->service();
    const auto file = service->get(nullptr, "arc_weld.arcon_param", "arcondata3");
    return file->cmobjCount() == 0 ? "no file" : file->r(key)->getString();
}

} // namespace

void processSetting(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("Arc Weld > Process Setting", [&] {
        openSubPage(pendant, "Process Setting");
        return Tour::require(pendant.find<QLabel>("lblTitle")->text(), "Process Setting");
    });
    tour.picture("process-setting");
    tour.step("arcondata3 is chosen and created with the defaults", [&] {
        Tour::require(stored(tour, "current"), "no file");
        pendant.choose("cbx_arconParamFileNumber", "arcondata3");
        Tour::require(stored(tour, "current"), "0");
        return pendant.lastMessage();
    });
    tour.step("current 180, re-strike open, saved", [&] {
        pendant.type("sbxArconCurrent", "180");
        pendant.click("btn_arconFold");
        pendant.chooseCode("cbxReArconSwitch", true);
        pendant.click("btnArcOnSave");
        Tour::require(stored(tour, "current"), "180");
        Tour::require(stored(tour, "re_arcon.enable"), "true");
        return Tour::require(pendant.lastMessage(), "info: save parameter succeed");
    });
    tour.picture("process-setting-saved");
}

void restart(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("closed and started again, the values are there", [&] {
        pendant.restart();
        openSubPage(pendant, "Process Setting");
        pendant.choose("cbx_arconParamFileNumber", "arcondata3");
        pendant.click("btn_arconFold");
        const QString current = pendant.find<QAbstractSpinBox>("sbxArconCurrent")->text();
        Tour::require(current.section('.', 0, 0), "180");
        return Tour::require(pendant.find<QComboBox>("cbxReArconSwitch")->currentText(), "Open");
    });
    tour.picture("process-setting-again");
}

} // namespace tour
