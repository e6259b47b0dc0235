
#include "support/programtouch.h"
#include "tour/tour.h"

namespace tour {

namespace {

/// A value for a control of the form, and the line that results.
struct Entry
{
    const char *control, *value, *line;
};

struct Example
{
    const char *instruction;
    Entry inserted, edited;
};

const Example examples[] = {
    {"ArcOn",
     {"cbxArcData", "arcdata2", R"(ArcOn "arcondata1","arcdata2")"},
     {"cbx_arconParamFileNumber", "arcondata3", R"(ArcOn "arcondata3","arcdata2")"}},
    {"ArcOff",
     {"", "", R"(ArcOff "arcoffdata1")"},
     {"cbx_arcoffParamFileNumber", "arcoffdata2", R"(ArcOff "arcoffdata2")"}},
    {"WMoveL",
     {"cbxSpeed", "v10", "WMoveL p1,v10,fine,torch1,wobj0"},
     {"cbxWeaveData", "weavedata4", R"(WMoveL p1,v10,fine,torch1,wobj0,"weavedata4")"}},
    {"WMoveC",
     {"cbxSpeed", "v10", R"(WMoveC p1,p1,v10,fine,torch1,wobj0,"weavedata4")"},
     {"cbxZone", "z5", R"(WMoveC p1,p1,v10,z5,torch1,wobj0,"weavedata4")"}},
    {"WeaveOn",
     {"", "", R"(WeaveOn "weavedata1")"},
     {"cbxWeaveFileNumber", "weavedata4", R"(WeaveOn "weavedata4")"}},
    {"WeaveOff", {"", "", "WeaveOff"}, {"", "", "WeaveOff"}},
    {"FeedOnWire", {"", "", "FeedOnWire 0.1"}, {"sbxTime", "1.5", "FeedOnWire 1.5"}},
    {"FeedBackWire", {"", "", "FeedBackWire 0.1"}, {"sbxTime", "0.2", "FeedBackWire 0.2"}},
    {"DetectGas", {"", "", "DetectGas 0.1"}, {"sbxTime", "2", "DetectGas 2"}},
};

void enter(Tour &tour, const QString &control, const char *value)
{
    if (control.startsWith("cbx"))
        tour.choose(control, value);
    else if (!control.isEmpty())
        tour.type(control, value);
}

} // namespace

void programEditor(Tour &tour)
{
    testsupport::ProgramTouch program(tour);
    for (const Example &example : examples) {
        const QString name = example.instruction;
        tour.step(name + " is inserted, edited and read back", [&, line = program.lineCount() + 1] {
            program.insert(name);
            for (const auto &[verb, entry] :
                 {std::pair{"insert-", example.inserted}, {"edit-", example.edited}}) {
                enter(tour, entry.control, entry.value);
                tour.takePicture(verb + name.toLower());
                tour.click("btnFormAccept");
                Tour::require(program.line(line), entry.line);
                tour.click("btnEditLine");
            }
            if (tour.find("lblFormWarning")->isVisible())
                tour.requireText("lblFormWarning", {});
            tour.click("btnFormAccept");
            return Tour::require(program.line(line), example.edited.line);
        });
    }
    tour.step("the program is kept", "program", [&] {
        program.saveAs("tour");
        return Tour::require(program.title(), "Program: tour.tl");
    });
    tour.step("a program's mistakes are marked", "mistakes", [&] {
        program.open("mistakes.tl");
        const auto *count = tour.find<QPushButton>("btnNextFinding");
        Tour::await("findings", [&] { return count->text().endsWith(" findings"); });
        program.choose(15);
        return tour.requireText(
            "lblFinding",
            "arcondata format error: arcondata41: files are arcondata1 to arcondata40");
    });
}

} // namespace tour
