#include "controller/names.h"
#include "desk.h"
#include "fuzz.h"

using controller::Request;
namespace names = controller::names;

namespace {

/// A controller, ready to weld; one that a program has changed is not used again.
struct Robot
{
    Robot()
    {
        cell.handle(
            {Request::Kind::Command, names::setWeldMode, "", QVariantMap{{"mode", "real"}}});
        start = position();
        cell.told = [this](const QString &path, const QVariant &) {
            changed = changed || path != names::programState;
        };
    }
    QVariant position()
    {
        return cell.handle({Request::Kind::Command, names::robotPosition}).value;
    }
    QVariant state(const char *key)
    {
        return cell.handle({Request::Kind::Get, names::programState, key}).value;
    }
    VirtualCell cell;
    QVariant start;
    bool changed = false;
};

} // namespace

/// A program that a controller is given and runs for a while.
void fuzz(const QByteArray &input)
{
    static std::unique_ptr<Robot> robot;
    if (!robot || robot->changed || robot->position() != robot->start)
        robot = std::make_unique<Robot>();
    VirtualCell &cell = robot->cell;
    const QVariantMap program{{"name", "fuzz.tl"}, {"text", textOf(input)}};
    const int lines = textOf(input).count('\n') + 1;
    require(cell.handle({Request::Kind::Command, names::loadProgram, "", program}).ok(),
            "any text is a program");
    require(cell.handle({Request::Kind::Command, names::runProgram}).ok(), "and can be run");
    for (int i = 0; i < 20 && robot->state("state") == "running"; ++i) {
        cell.pass(100);
        const int line = robot->state("line").toInt();
        require(line >= 0 && line <= lines, "it is in a line");
    }
    require(cell.handle({Request::Kind::Command, names::stopProgram}).ok(), "it can be stopped");
    require(robot->state("state") == "idle" && robot->state("line") == 0, "and is over then");
}
