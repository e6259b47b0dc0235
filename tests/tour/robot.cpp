#include <QListView>
#include <QListWidget>
#include <algorithm>

#include "support/programtouch.h"
#include "tour/tour.h"

namespace tour {

void reweld(Tour &tour)
{
    using Fault = welmo::controller::Faults::Fault;
    const auto *button = tour.find<QToolButton>("btnReweld");
    tour.step("after the arc was lost, the rest of the seam is offered", "reweld-offered", [&] {
        tour.open("program");
        tour.click("btnProgramRun");
        tour.awaitCurrent(160);
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
        tour.awaitCurrent(160);
        return tour.requireText("lblState", "Welding");
    });
    tour.step("stopped, line by line there and back", "step", [&] {
        tour.click("btnProgramStop");
        testsupport::ProgramTouch(tour).choose(1);
        tour.click("btnStep");
        tour.awaitText("lblRunState", "paused at line 3");
        tour.click("btnStepBack");
        tour.awaitText("lblRunState", "paused at line 2");
        tour.click("btnProgramStop");
        return tour.awaitText("lblRunState", "stopped");
    });
}

void path(Tour &tour)
{
    testsupport::ProgramTouch program(tour);
    for (const char *name : {"vgroove", "pipe", "stitch", "fillet"}) {
        tour.step(QString(name) + " in a picture", "path-" + QString(name), [&] {
            tour.open("program");
            program.open(QString(name) + ".tl");
            tour.click("btnProgramPath");
            return Tour::require(tour.text("lblPathSums").left(9), "Expected:");
        });
    }
    tour.step("with the torch and its bead while it runs", "path-bead", [&] {
        tour.click("btnProgramRun");
        tour.awaitCurrent(160);
        Tour::await("20 mm", [&] { return tour.text("lblWeldingDistance").toDouble() > 20; });
        return tour.requireText("lblState", "Welding");
    });
    tour.step("a touch on the seam opens its line", [&] {
        tour.click("btnProgramStop");
        QWidget *view = tour.find("pndPath");
        for (int y = view->height(); y > 0 && view->isVisible(); y -= 20) // until it hits the seam
            QTest::mouseClick(view, Qt::LeftButton, {}, {view->width() / 2, y});
        const int line = tour.find<QListView>("lstLines")->currentIndex().row();
        return Tour::require(program.line(line + 1), "WMoveL p4,v10,fine,torch1,wobj0");
    });
}

void jog(Tour &tour)
{
    using Event = welmo::controller::Journal::Event;
    const auto count = [&tour](Event event) {
        const auto entries = tour.journal().entries();
        return std::count_if(entries.begin(), entries.end(),
                             [event](const auto &entry) { return entry.event == event; });
    };
    QString before;
    tour.step("a key of the jog page is held, and the robot moves", "jog", [&] {
        tour.open("jog");
        tour.awaitText("lblJogState", "The robot stands still");
        before = tour.text("lblJogValue1");
        const QPoint plus = tour.find("lblJogValue1")->geometry().topRight() + QPoint(60, 10);
        QTest::mousePress(tour.find("pndJogPad"), Qt::LeftButton, {}, plus);
        Tour::await("moving", [&] { return tour.text("lblJogValue1") != before; });
        return Tour::require(QString::number(count(Event::Jogs)), "1");
    });
    tour.step("the key is let go, and it stands", [&] {
        QTest::mouseRelease(tour.window(), Qt::LeftButton);
        return Tour::await("standing", [&] { return count(Event::JogStops) == 1; });
    });
    tour.step("a point is renamed", "jog-points", [&] {
        tour.find<QListWidget>("lstPoints")->setCurrentRow(6);
        tour.find<QLineEdit>("ledtPointName")->setText("corner");
        tour.click("btnRenamePoint");
        return tour.requireMessage("info: p7 is corner now");
    });
    tour.step("and copied", [&] {
        tour.click("btnCopyPoint");
        return tour.requireMessage("info: corner1 is a copy of corner");
    });
    tour.step("the jog speed is in the status bar, with gas and wire", [&] {
        tour.click("btnJogFaster");
        return tour.requireText("lblHandFacts", "Jog 35 %   Gas off   Wire still");
    });
}

} // namespace tour
