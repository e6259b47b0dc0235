#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

#include "support/programtouch.h"
#include "tour/pages.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

namespace {

constexpr int patience = 30000; // milliseconds; the robot takes its way

void strike(testsupport::TestPendant &pendant, Qt::Key key)
{
    QTest::keyClick(pendant.window()->windowHandle(), key);
    QCoreApplication::processEvents();
}

int shown(testsupport::TestPendant &pendant, const char *label)
{
    return pendant.find<QLabel>(label)->text().toInt();
}

QString weldMode()
{
    return m("welmo.welding_options.weld_mode")->getString();
}

// A file comes into being with 0 A: nobody welds with what nobody chose.
void chooseCurrents(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("the example's files get their currents", [&] {
        openSubPage(pendant, "Process Setting");
        pendant.choose("cbx_arconParamFileNumber", "arcondata1");
        pendant.type("sbxArconCurrent", "150");
        pendant.click("btnArcOnSave");
        pendant.choose("cbx_weldingParamFileNumber", "arcdata1");
        pendant.type("sbxWeldCurrent", "180");
        pendant.click("btnWeldingSave");
        return Tour::require(pendant.lastMessage(), "info: save parameter succeed");
    });
}

void startWelding(Tour &tour, testsupport::ProgramTouch &program)
{
    auto &pendant = tour.pendant();
    tour.step("the mode key leads to real welding", [&] {
        bool follows = true;
        for (int i = 0; i < 3 && follows && weldMode() != "real"; ++i) {
            const QString before = weldMode();
            strike(pendant, Qt::Key_F4);
            follows = QTest::qWaitFor([&before] { return weldMode() != before; });
        }
        return Tour::require(weldMode(), "real");
    });
    tour.step("an example runs, and the monitor shows the weld", [&] {
        program.open("fillet.tl");
        pendant.click("btnProgramRun");
        strike(pendant, Qt::Key_F6);
        const auto *file = pendant.find<QLineEdit>("ledtWeldingName");
        const auto isWelding = [&] {
            return file->text() == "arcdata1" && shown(pendant, "lblActualCurrent") > 160;
        };
        const bool welds = QTest::qWaitFor(isWelding, patience);
        return Tour::require(welds ? "welding" : "no weld", "welding");
    });
    tour.picture("weld");
}

void trim(Tour &tour)
{
    auto &pendant = tour.pendant();
    tour.step("trimmed by 30 A, and the arc follows", [&] {
        const double before = pendant.find<QDoubleSpinBox>("sbxCurrent")->value();
        for (int i = 0; i < 3; ++i)
            pendant.click("btnCurrentAdd10");
        pendant.click("btnSave");
        Tour::require(pendant.lastMessage(), "info: save succeed");
        const bool follows = QTest::qWaitFor(
            [&] { return shown(pendant, "lblActualCurrent") > before + 20; }, patience);
        return Tour::require(follows ? "follows" : "stays", "follows");
    });
    tour.picture("weld-trimmed");
}

} // namespace

void weld(Tour &tour)
{
    auto &pendant = tour.pendant();
    chooseCurrents(tour);
    testsupport::ProgramTouch program(pendant);
    startWelding(tour, program);
    trim(tour);
    tour.step("stopped, the arc is out", [&] {
        pendant.click("btnProgramStop");
        const bool out =
            QTest::qWaitFor([&] { return shown(pendant, "lblActualCurrent") == 0; }, patience);
        Tour::require(out ? "out" : "burns", "out");
        strike(pendant, Qt::Key_F6);
        return Tour::require(pendant.find<QLabel>("lblRunState")->text(), "Ready (stopped)");
    });
}

} // namespace tour
