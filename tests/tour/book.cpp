#include <QtTest>

#include "support/programtouch.h"
#include "tour/tour.h"

namespace tour {

namespace {

QString cell(Tour &tour, int row, int column)
{
    const auto *model = tour.find<QTableView>("tblWelds")->model();
    return model->index(row, column).data().toString();
}

void touchRow(Tour &tour, int row)
{
    auto *table = tour.find<QTableView>("tblWelds");
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualRect(table->model()->index(row, 3)).center());
}

} // namespace

void weldBook(Tour &tour)
{
    tour.step("an arc that breaks is to stop the weld", [&] {
        tour.openSubPage("Process Setting");
        tour.choose("cbx_weldingParamFileNumber", "arcdata1");
        if (!tour.find("cbxArcBreakOption")->isVisible())
            tour.click("btn_weldFold");
        tour.chooseCode("cbxArcBreakOption", "stop_and_alarm");
        tour.click("btnWeldingSave");
        return tour.requireMessage("info: save parameter succeed");
    });
    tour.step("a weld runs, and the book shows it", "book-trend", [&] {
        testsupport::ProgramTouch(tour).open("vgroove.tl");
        tour.click("btnProgramRun");
        tour.open("weldbook");
        tour.click("btnTrend");
        const auto *state = tour.host()->service()->watchNode("arc_weld.welder_state");
        return Tour::await("welding", [&] {
            return state->r("phase")->getString() == "welding"
                && state->r("welding_distance")->getDouble() > 10;
        });
    });
    tour.step("the arc breaks, and the weld is in the book", "book-broken", [&] {
        tour.faults()->set(welmo::controller::Faults::Fault::ArcBreaks, true);
        const auto *program = tour.host()->service()->watchNode("tl_program.state");
        Tour::await("stopped", [&] { return program->r("state")->getString() == "error"; });
        tour.click("btnWelds");
        const QString late = Tour::await("written", [&] { return cell(tour, 0, 0) == "✗"; });
        tour.faults()->clear();
        if (!late.isEmpty())
            return late + ", program " + program->r("state")->getString() + ", first row "
                + cell(tour, 0, 0) + ' ' + cell(tour, 0, 2);
        touchRow(tour, 0);
        return Tour::require(cell(tour, 0, 2), "vgroove.tl:6");
    });
    tour.step("after a restart its card is there, and red", "book-card", [&] {
        tour.restart();
        tour.open("weldbook");
        Tour::await("listed", [&] { return cell(tour, 0, 0) == "✗"; });
        touchRow(tour, 0);
        const auto *reason = tour.find<QLabel>("lblReason");
        return Tour::await("told", [&] { return reason->text().contains("arc lost at "); });
    });
}

} // namespace tour
