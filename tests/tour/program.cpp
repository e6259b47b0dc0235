#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "support/programtouch.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace tour {

namespace {

using testsupport::ProgramTouch;

struct Example
{
    const char *instruction;
    void (*fillIn)(testsupport::TestPendant &);
    const char *inserted;
    void (*edit)(testsupport::TestPendant &);
    const char *edited;
};

using Pendant = testsupport::TestPendant;
const auto nothing = [](Pendant &) {};

const Example examples[] = {
    {"ArcOn", [](Pendant &p) { p.choose("cbxArcData", "arcdata2"); },
     R"(ArcOn "arcondata1","arcdata2")",
     [](Pendant &p) { p.choose("cbx_arconParamFileNumber", "arcondata3"); },
     R"(ArcOn "arcondata3","arcdata2")"},
    {"ArcOff", nothing, R"(ArcOff "arcoffdata1")",
     [](Pendant &p) { p.choose("cbx_arcoffParamFileNumber", "arcoffdata2"); },
     R"(ArcOff "arcoffdata2")"},
    {"WMoveL", [](Pendant &p) { p.choose("cbxSpeed", "v10"); }, "WMoveL p1,v10,fine,torch1,wobj0",
     [](Pendant &p) { p.choose("cbxWeaveData", "weavedata4"); },
     R"(WMoveL p1,v10,fine,torch1,wobj0,"weavedata4")"},
    {"WMoveC", [](Pendant &p) { p.choose("cbxSpeed", "v10"); },
     "WMoveC p1,p1,v10,fine,torch1,wobj0", [](Pendant &p) { p.choose("cbxZone", "z5"); },
     "WMoveC p1,p1,v10,z5,torch1,wobj0"},
    {"WeaveOn", nothing, R"(WeaveOn "weavedata1")",
     [](Pendant &p) { p.choose("cbxWeaveFileNumber", "weavedata4"); }, R"(WeaveOn "weavedata4")"},
    {"WeaveOff", nothing, "WeaveOff", nothing, "WeaveOff"},
    {"FeedOnWire", nothing, "FeedOnWire 0.1", [](Pendant &p) { p.type("sbxTime", "1.5"); },
     "FeedOnWire 1.5"},
    {"FeedBackWire", nothing, "FeedBackWire 0.1", [](Pendant &p) { p.type("sbxTime", "0.2"); },
     "FeedBackWire 0.2"},
    {"DetectGas", nothing, "DetectGas 0.1", [](Pendant &p) { p.type("sbxTime", "2"); },
     "DetectGas 2"},
};

void insertAndEdit(Tour &tour, ProgramTouch &program, const Example &example)
{
    auto &pendant = tour.pendant();
    const QString name = example.instruction;
    tour.step(name + " is inserted, edited and read back", [&] {
        const int line = program.lineCount() + 1;
        program.insert(name);
        example.fillIn(pendant);
        tour.picture("insert-" + name.toLower());
        pendant.click("btnFormAccept");
        Tour::require(program.line(line), example.inserted);
        pendant.click("btnEditLine");
        example.edit(pendant);
        tour.picture("edit-" + name.toLower());
        pendant.click("btnFormAccept");
        Tour::require(program.line(line), example.edited);
        pendant.click("btnEditLine");
        if (pendant.find("lblFormWarning")->isVisible())
            return Tour::require(pendant.find<QLabel>("lblFormWarning")->text(), {});
        pendant.click("btnFormAccept");
        return Tour::require(program.line(line), example.edited);
    });
}

} // namespace

void programEditor(Tour &tour)
{
    auto &pendant = tour.pendant();
    ProgramTouch program(pendant);
    for (const Example &example : examples)
        insertAndEdit(tour, program, example);
    tour.step("the program is kept", [&] {
        program.saveAs("tour");
        return Tour::require(program.title(), "Program: tour.tl");
    });
    tour.picture("program");
    tour.step("a program's mistakes are marked", [&] {
        program.open("mistakes.tl");
        auto *count = pendant.find<QPushButton>("btnNextFinding");
        if (!QTest::qWaitFor([count] { return count->text() == "34 findings"; }))
            return Tour::require(count->text(), "34 findings");
        program.choose(15);
        return Tour::require(pendant.find<QLabel>("lblFinding")->text(), "arcondata format error");
    });
    tour.picture("mistakes");
}

} // namespace tour
