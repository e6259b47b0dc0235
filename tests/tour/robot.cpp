#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
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

void jog(Tour &tour)
{
    using Event = welmo::controller::Journal::Event;
    const auto place = [&tour] { return tour.find<QLabel>("lblJogValue1")->text(); };
    const auto last = [&tour] { return tour.journal().entries().last().event; };
    QString before;
    tour.step("a key of the jog page is held, and the robot moves", "jog", [&] {
        tour.open("jog");
        before = place();
        const QPoint plus = tour.find("lblJogValue1")->geometry().topRight() + QPoint(60, 10);
        QTest::mousePress(tour.find("pndJogPad"), Qt::LeftButton, {}, plus);
        Tour::await("moving", [&] { return place() != before; });
        return Tour::require(last() == Event::Jogs ? "jogs" : "still", "jogs");
    });
    tour.step("the key is let go, and it stands", [&] {
        QTest::mouseRelease(tour.window(), Qt::LeftButton);
        return Tour::await("standing", [&] { return last() == Event::JogStops; });
    });
    tour.step("a point is renamed", "jog-points", [&] {
        tour.find<QListWidget>("lstPoints")->setCurrentRow(6);
        tour.find<QLineEdit>("ledtPointName")->setText("corner");
        tour.click("btnRenamePoint");
        return tour.requireMessage("info: p7 is corner now");
    });
    tour.step("the jog speed is in the status bar, with gas and wire", [&] {
        tour.click("btnJogFaster");
        return tour.requireText("lblHandFacts", "Jog 35 %   Gas off   Wire still");
    });
}

} // namespace tour
