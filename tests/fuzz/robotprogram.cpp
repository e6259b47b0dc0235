#include "controller/controllerfixture.h"
#include "controller/core/json.h"
#include "fuzz.h"

/// The input is a program that a controller runs for a while.
void fuzz(const QByteArray &input)
{
    ControllerFixture fixture;
    fixture.run("arc_weld.set_weld_mode", QVariantMap{{"mode", "real"}});
    const auto state = [&fixture](const char *key) {
        return fixture.get("tl_program.state", key).value;
    };
    const QVariantMap program{{"name", "fuzz.tl"}, {"text", textOf(input)}};
    const int lines = textOf(input).count('\n') + 1;
    require(fixture.run("tl_program.load", program).ok(), "any text is a program");
    require(fixture.run("tl_program.run").ok(), "any program can be run");
    for (int i = 0; i < 20 && state("state") == "running"; ++i) {
        fixture.now += 100;
        fixture.controller.tick();
        const int line = state("line").toInt();
        require(line >= 0 && line <= lines, "a run is in a line");
    }
    require(fixture.run("tl_program.stop").ok(), "a run can be stopped");
    require(state("state") == "idle" && state("line") == 0, "a run that was stopped is over");
    for (const ControllerFixture::Told &told : qAsConst(fixture.told))
        require(welmo::controller::isPlain(told.values), "what is told is plain", told.path);
}
