#include <QLabel>
#include <QToolButton>

#include "support/programtouch.h"
#include "tour/tour.h"

namespace tour {

void reweld(Tour &tour)
{
    using Fault = welmo::controller::Faults::Fault;
    const auto *button = tour.find<QToolButton>("btnReweld");
    const auto current = [&tour] { return tour.find<QLabel>("lblActualCurrent")->text().toInt(); };
    tour.step("after the arc was lost, the rest of the seam is offered", "reweld-offered", [&] {
        tour.open("program");
        tour.click("btnProgramRun");
        Tour::await("welding", [&] { return current() > 160; });
        tour.faults()->set(Fault::ArcBreaks, true);
        Tour::await("no arc", [&] { return tour.find("pndAlarm")->isVisible(); });
        tour.click("btnProgramStop");
        tour.click("btnAlarmAcknowledge");
        tour.faults()->clear();
        Tour::await("offered", [&] { return button->isVisible(); });
        return Tour::require(button->text().left(13), "Re-weld from ");
    });
    tour.step("and welded, from the place itself", "reweld", [&] {
        tour.click("btnReweld");
        Tour::await("welding", [&] { return current() > 160; });
        return tour.requireText("lblState", "Welding");
    });
    tour.step("stopped, line by line there and back", "step", [&] {
        tour.click("btnProgramStop");
        testsupport::ProgramTouch(tour).choose(1);
        tour.click("btnStep");
        const auto says = [&tour](const QString &text) {
            return
                [&tour, text] { return tour.find<QLabel>("lblRunState")->text().contains(text); };
        };
        Tour::await("line 2", says("paused at line 3"));
        tour.click("btnStepBack");
        Tour::await("back", says("paused at line 2"));
        tour.click("btnProgramStop");
        return Tour::await("stopped", says("stopped"));
    });
}

} // namespace tour
