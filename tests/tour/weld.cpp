#include <QWindow>
#include <algorithm>

#include "pando/frame.h"
#include "support/programtouch.h"
#include "tour/tour.h"

namespace tour {

namespace {

QString weldMode()
{
    return m("welmo.welding_options.weld_mode")->getString();
}

QString switchMode(Tour &tour)
{
    const QString before = weldMode();
    tour.strike(Qt::Key_F4);
    return Tour::await("another mode", [&before] { return weldMode() != before; });
}

} // namespace

void handleKeys(Tour &tour)
{
    QWindow *window = tour.window()->windowHandle();
    tour.step("F1 is held, the wire feeds", "wire-feed-held", [&] {
        tour.openSubPage("Process Setting");
        QTest::keyPress(window, Qt::Key_F1);
        return tour.requireMessage("info: wire feeding success");
    });
    tour.step("and let go, the wire stands", [&] {
        QTest::keyRelease(window, Qt::Key_F1);
        return tour.requireMessage("info: cancel wire feeding success");
    });
    tour.step("F4 switches the mode, with its picture in the status bar", [&] {
        const auto *shown = pando::frame().status->item("welmo.labelArcMode");
        const QString before = shown->accessibleName();
        switchMode(tour);
        return Tour::await("its picture", [&] { return shown->accessibleName() != before; });
    });
    tour.step("F6 shows the monitor", "monitor", [&] {
        tour.strike(Qt::Key_F6);
        return Tour::require(pando::frame().rightSide->isVisible() ? "shown" : "hidden", "shown");
    });
    tour.strike(Qt::Key_F6);
}

void weld(Tour &tour)
{
    // New files have 0 A, so that nobody welds with values that nobody chose.
    tour.step("the example's files get their currents", [&] {
        tour.openSubPage("Process Setting");
        tour.choose("cbx_arconParamFileNumber", "arcondata1");
        tour.type("sbxArconCurrent", "150");
        tour.click("btnArcOnSave");
        tour.choose("cbx_weldingParamFileNumber", "arcdata1");
        tour.type("sbxWeldCurrent", "180");
        tour.click("btnWeldingSave");
        return tour.requireMessage("info: save parameter succeed");
    });
    testsupport::ProgramTouch program(tour);
    tour.step("an example runs with real welding, and the monitor shows the weld", "weld", [&] {
        for (int i = 0; i < 2 && weldMode() != "real"; ++i)
            switchMode(tour);
        Tour::require(weldMode(), "real");
        program.open("fillet.tl");
        tour.click("btnProgramRun");
        tour.strike(Qt::Key_F6);
        const auto *file = tour.find<QLineEdit>("ledtWeldingName");
        return Tour::await("welding",
                           [&] { return file->text() == "arcdata1" && tour.current() > 160; });
    });
    tour.step("trimmed by 30 A, and the arc follows", "weld-trimmed", [&] {
        const double before = tour.find<QDoubleSpinBox>("sbxCurrent")->value();
        for (int i = 0; i < 3; ++i)
            tour.click("btnCurrentAdd10");
        tour.click("btnSave");
        tour.requireMessage("info: save succeed");
        return tour.awaitCurrent(int(before) + 20);
    });
    tour.step("stopped, the arc is out", [&] {
        tour.click("btnProgramStop");
        Tour::await("out", [&] { return tour.current() == 0; });
        tour.strike(Qt::Key_F6);
        const QString sum = tour.text("lblRunState");
        return Tour::require(sum.left(sum.indexOf(" seams")), "Ready (stopped; 1 of 1");
    });
}

void example(Tour &tour)
{
    tour.step("a fresh pendant welds its example at one press", "example", [&] {
        tour.restart(testsupport::withExample());
        tour.click("btnWeldExample");
        tour.awaitCurrent(120);
        return tour.requireText("lblState", "Welding");
    });
    tour.step("and is stopped", [&] {
        tour.click("btnProgramStop");
        return Tour::await("out", [&] { return tour.current() == 0; });
    });
}

void alarm(Tour &tour)
{
    using Fault = welmo::controller::Faults::Fault;
    tour.step("the arc breaks off, and every page says so", "alarm", [&] {
        tour.click("btnProgramRun");
        tour.awaitCurrent(160);
        tour.faults()->set(Fault::ArcBreaks, true);
        tour.awaitText("lblAlarm", "fillet.tl, line 7, arc lost at ");
        tour.open("home");
        return Tour::require(tour.find("pndAlarm")->isVisible() ? "seen" : "hidden", "seen");
    });
    tour.step("Why? leads to the list, where the arc is red", "why-no-arc", [&] {
        tour.click("btnAlarmWhy");
        const QVariant verdict = tour.find("lblCheck_burns")->property("verdict");
        return Tour::require(verdict.toString(), "bad");
    });
    tour.step("Show line leads to the line, the run stops", "alarm-line", [&] {
        tour.click("btnAlarmLine");
        tour.click("btnProgramStop");
        const QString sum = tour.text("lblRunState");
        tour.faults()->clear();
        const QString colour = tour.find("lblRunState")->property("state").toString();
        return Tour::require(sum.left(sum.indexOf(", arc")) + ' ' + colour,
                             "Ready (stopped, 1 fault: line 7 failed");
    });
    tour.step("acknowledged, it is in the log", "alarm-log", [&] {
        tour.click("btnAlarmAcknowledge");
        Tour::await("gone", [&] { return !tour.find("pndAlarm")->isVisible(); });
        tour.open("messages");
        const auto &log = tour.messages();
        return Tour::await("logged", [&log] {
            return std::any_of(log.begin(), log.end(), [](const auto &entry) {
                return entry.text.contains("line 7, arc lost at ");
            });
        });
    });
}

} // namespace tour
