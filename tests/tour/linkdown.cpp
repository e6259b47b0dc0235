#include <QLabel>

#include "tour/pages.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

void linkDown(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("link down, Save is refused", [&] {
        openSubPage(pendant, "Process Setting");
        pendant.click("btnLink");
        pendant.waitDisconnected();
        Tour::require(pendant.find<QLabel>("lblLinkState")->text(), "Link off");
        pendant.click("btnArcOnSave");
        return Tour::require(pendant.lastMessage(), "error: tessa is not connected");
    });
    tour.picture("link-down");
    tour.step("link up again", [&] {
        pendant.click("btnLink");
        pendant.waitConnected();
        return Tour::require(pendant.find<QLabel>("lblLinkState")->text(), "Connected");
    });
}

} // namespace tour
