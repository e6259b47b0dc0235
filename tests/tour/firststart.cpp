#include <QLabel>

#include "pando/frame.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

void firstStart(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("first start", [&] {
        Tour::require(pando::frame().center->currentKey(), "pendant.home");
        return Tour::require(pendant.find<QLabel>("lblLinkState")->text(), "Connected");
    });
    tour.picture("home");
}

} // namespace tour
