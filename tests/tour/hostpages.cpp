#include <QLabel>
#include <QTableView>

#include "pando/frame.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

void hostPages(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("Messages", [&] {
        pendant.open("messages");
        Tour::require(pando::frame().center->currentKey(), "pendant.messages");
        pendant.click("btnLevel_error");
        const auto *table = pendant.find<QTableView>("tblMessages");
        Tour::require(table->model()->index(0, 2).data().toString(), "tessa is not connected");
        const int errors = table->model()->rowCount();
        pendant.click("btnLevel_");
        return QStringLiteral("%1 of %2 are errors").arg(errors).arg(table->model()->rowCount());
    });
    tour.picture("messages");
    tour.step("Controller", [&] {
        pendant.open("controller");
        pendant.click("btnFault_WireStuck");
        const bool stuck = pendant.faults()->isOn(controller::Faults::Fault::WireStuck);
        Tour::require(stuck ? "stuck" : "free", "stuck");
        pendant.click("btnClearFaults");
        return QStringLiteral("the wire stuck, and was mended");
    });
    tour.picture("controller");
}

} // namespace tour
