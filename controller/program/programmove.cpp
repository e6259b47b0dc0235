#include <algorithm>

#include "controller/program/programinstruction.h"
#include "controller/program/programpath.h"
#include "controller/robot/projectdata.h"
#include "controller/robot/robot.h"
#include "controller/welding/weld.h"

namespace welmo::controller {

namespace {

/// [AuxPoint,] ToPoint, Speed, Zone, Tool [, Wobj] [, "weavedata"]. Every point is gone to exactly,
/// whatever its zone allows.
class Move : public ProgramInstruction
{
public:
    Move(tl::ParsedLine line, Way way)
        : m_line(std::move(line))
        , m_way(way)
        , m_welds(m_line.instruction->mayWeave)
    { }

    Reply begin(ProgramStage &stage) override;
    std::optional<Reply> step(ProgramStage &stage) override;

private:
    Reply plan(const ProgramStage &stage);
    Reply target(const ProjectData &project, const tl::PointExpression &point, Frame *frame) const;
    double wantedSpeed(const ProgramStage &stage) const;
    double goBack(ProgramStage &stage);
    Reply place(ProgramStage &stage);

    tl::ParsedLine m_line;
    Way m_way;
    bool m_welds;
    double m_speed = 0; // mm/s
    std::unique_ptr<ProgramPath> m_path;
    std::optional<Weave> m_weave;
    double m_gone = 0; // mm of the path
    int m_ms = 0;
    std::optional<double> m_back; // where the torch goes back to
};

Reply Move::begin(ProgramStage &stage)
{
    const ProjectData project(stage.context);
    Reply reply = project.speed(m_line.speed->text, &m_speed);
    if (reply.ok())
        reply = project.zone(m_line.zone->text);
    if (reply.ok())
        reply = plan(stage);
    if (reply.ok() && stage.weld.hasSeam())
        stage.seamLength += m_path->length();
    if (!reply.ok() || !m_welds)
        return reply;
    m_weave = stage.weave;
    const QString file = m_line.weaveFile();
    return file.isEmpty() ? reply : readWeave(stage.context, file, &m_weave);
}

Reply Move::plan(const ProgramStage &stage)
{
    const ProjectData project(stage.context);
    const Joints present = stage.robot.joints();
    Frame tool, to, by;
    Reply reply = project.toolTip(m_line.tool->text, &tool);
    if (reply.ok())
        reply = target(project, m_line.target->reading.point, &to);
    if (reply.ok() && m_way == Way::Circle)
        reply = target(project, m_line.aux->reading.point, &by);
    if (!reply.ok())
        return reply;
    const Frame from = arm::forward(present) * tool;
    const auto end = arm::inverse(to * tool.inverse(), present);
    if (m_way == Way::Circle)
        m_path = ProgramPath::circle(from, by.translation(), to, tool);
    else if (m_way == Way::Line)
        m_path = ProgramPath::line(from, to, tool);
    else if (end)
        m_path = ProgramPath::joint(present, *end, tool);
    if (!m_path || !m_path->isPossible(present))
        return refusedFor(OutOfRange, {QStringLiteral("out_of_reach"), {m_line.target->token.text}},
                          QStringLiteral("the robot does not get to ") + m_line.target->token.text);
    return {};
}

Reply Move::target(const ProjectData &project, const tl::PointExpression &point, Frame *frame) const
{
    Frame pose, base;
    QString workObject;
    Reply reply = project.point(point.name, &pose, &workObject);
    if (m_line.wobj)
        workObject = m_line.wobj->text;
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

std::optional<Reply> Move::step(ProgramStage &stage)
{
    if (stage.weld.process().wantsReturn())
        stage.speed = goBack(stage);
    else if (!stage.weld.holdsTorch())
        stage.speed = wantedSpeed(stage);
    m_gone = std::min(m_path->length(), m_gone + stage.speed / 1000);
    ++m_ms;
    Reply placed = place(stage);
    if (!placed.ok() || (m_gone >= m_path->length() && !stage.weld.holdsTorch()))
        return placed;
    return {};
}

// Along a seam the file says how fast; a test run has a speed of its own for everything.
double Move::wantedSpeed(const ProgramStage &stage) const
{
    if (stage.dryRunSpeed > 0)
        return stage.dryRunSpeed;
    const double seamSpeed = m_welds ? stage.weld.seamSpeed() : 0;
    return seamSpeed > 0 ? seamSpeed : m_speed;
}

double Move::goBack(ProgramStage &stage)
{
    if (!m_back)
        m_back = std::max(0.0, m_gone - stage.weld.process().weld().backDistance);
    const double stepBack = std::min(m_speed, (m_gone - *m_back) * 1000);
    if (stepBack > 0)
        return -stepBack;
    m_back.reset();
    stage.weld.returned();
    return 0;
}

Reply Move::place(ProgramStage &stage)
{
    const bool atEnd = m_gone >= m_path->length();
    const double aside = m_weave && !atEnd ? m_weave->aside(m_gone, m_ms) : 0;
    const auto joints = m_path->at(m_gone, stage.robot.joints(), aside);
    if (!joints)
        return refusedFor(OutOfRange, {QStringLiteral("out_of_reach"), {m_line.target->token.text}},
                          QStringLiteral("the robot does not get there"));
    stage.robot.place(*joints);
    return {};
}

} // namespace

std::unique_ptr<ProgramInstruction> makeMove(const tl::ParsedLine &line, Way way)
{
    return std::make_unique<Move>(line, way);
}

} // namespace welmo::controller
