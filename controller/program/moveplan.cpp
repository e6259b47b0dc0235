#include "controller/program/moveplan.h"

#include "controller/core/reason.h"

namespace welmo::controller {

namespace {

Reply target(const ProjectData &project, const tl::ParsedLine &line,
             const tl::PointExpression &point, Frame *frame)
{
    Frame pose, base;
    QString workObject;
    Reply reply = project.point(point.name, &pose, &workObject);
    if (line.wobj)
        workObject = line.wobj->text;
    if (reply.ok())
        reply = project.reference(ProjectData::noFrame, workObject, &base);
    if (!reply.ok())
        return reply;
    const auto &n = point.numbers;
    switch (point.kind) {
    case tl::PointExpression::Kind::Plain:
        break;
    case tl::PointExpression::Kind::Offs:
        pose.pretranslate(Eigen::Vector3d(n[0], n[1], n[2]));
        break;
    case tl::PointExpression::Kind::RelTool:
        pose = pose * arm::toFrame({n[0], n[1], n[2], n[3], n[4], n[5]});
        break;
    }
    *frame = base * pose;
    return {};
}

std::unique_ptr<ProgramPath> pathTo(const Frame &to, const Frame &by, const Frame &tool, Way way,
                                    const Joints &present)
{
    const Frame from = arm::forward(present) * tool;
    if (way == Way::Circle)
        return ProgramPath::circle(from, by.translation(), to, tool);
    if (way == Way::Line)
        return ProgramPath::line(from, to, tool);
    const auto end = arm::inverse(to * tool.inverse(), present);
    return end ? ProgramPath::joint(present, *end, tool) : nullptr;
}

} // namespace

Reply MovePlan::make(const ProjectData &project, const tl::ParsedLine &line, Way way,
                     const Joints &from, MovePlan *plan)
{
    Frame to, by;
    Reply reply = project.speed(line.speed->text, &plan->speed);
    if (reply.ok())
        reply = project.zone(line.zone->text);
    if (reply.ok())
        reply = project.toolTip(line.tool->text, &plan->tool);
    if (reply.ok())
        reply = target(project, line, line.target->reading.point, &to);
    if (reply.ok() && way == Way::Circle)
        reply = target(project, line, line.aux->reading.point, &by);
    if (!reply.ok())
        return reply;
    plan->path = pathTo(to, by, plan->tool, way, from);
    if (!plan->path || !plan->path->isPossible(from))
        return refusedFor(OutOfRange, {QStringLiteral("out_of_reach"), {line.target->token.text}},
                          QStringLiteral("the robot does not get to ") + line.target->token.text);
    return {};
}

std::optional<Way> wayOf(tl::Word word)
{
    switch (word) {
    case tl::Word::MoveJ:
        return Way::Joint;
    case tl::Word::MoveL:
    case tl::Word::WMoveL:
        return Way::Line;
    case tl::Word::MoveC:
    case tl::Word::WMoveC:
        return Way::Circle;
    default:
        return {};
    }
}

} // namespace welmo::controller
