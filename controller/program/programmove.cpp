#include <algorithm>
#include <map>

#include "controller/program/programinstruction.h"
#include "controller/program/programpath.h"
#include "controller/robot/projectdata.h"
#include "controller/robot/robot.h"
#include "controller/welding/weld.h"

namespace welmo::controller {

namespace {

enum class Way { Joint, Line, Circle };

struct MoveKind
{
    Way way;
    bool welds;
};

const MoveKind *kindNamed(const QString &word)
{
    static const std::map<QString, MoveKind> kinds{
        {QStringLiteral("MoveJ"), {Way::Joint, false}},
        {QStringLiteral("MoveL"), {Way::Line, false}},
        {QStringLiteral("MoveC"), {Way::Circle, false}},
        {QStringLiteral("WMoveL"), {Way::Line, true}},
        {QStringLiteral("WMoveC"), {Way::Circle, true}},
    };
    const auto kind = kinds.find(word);
    return kind == kinds.end() ? nullptr : &kind->second;
}

/// [AuxPoint,] ToPoint, Speed, Zone, Tool [, Wobj] [, "weavedata"]. Every point is gone to exactly,
/// whatever its zone allows.
class Move : public ProgramInstruction
{
public:
    Move(ProgramLine line, const MoveKind &kind)
        : m_line(std::move(line))
        , m_kind(kind)
    { }

    Reply begin(ProgramStage &stage) override;
    std::optional<Reply> step(ProgramStage &stage) override;

private:
    Reply readArguments();
    Reply plan(const ProgramStage &stage);
    Reply target(const ProjectData &project, const QString &argument, Frame *frame) const;
    double wantedSpeed(const ProgramStage &stage) const;
    double goBack(ProgramStage &stage);
    Reply place(ProgramStage &stage);

    ProgramLine m_line;
    MoveKind m_kind;
    QString m_aux, m_target, m_speedName, m_tool, m_workObject, m_weaveFile;
    double m_speed = 0; // mm/s
    std::unique_ptr<ProgramPath> m_path;
    std::optional<Weave> m_weave;
    double m_way = 0; // mm
    int m_ms = 0;
    std::optional<double> m_back; // where the torch goes back to
};

Reply Move::begin(ProgramStage &stage)
{
    Reply reply = readArguments();
    if (reply.ok())
        reply = ProjectData(stage.context).speed(m_speedName, &m_speed);
    if (reply.ok())
        reply = plan(stage);
    if (!reply.ok() || !m_kind.welds)
        return reply;
    m_weave = stage.weave;
    return m_weaveFile.isEmpty() ? reply : readWeave(stage.context, m_weaveFile, &m_weave);
}

Reply Move::readArguments()
{
    QStringList rest = m_line.arguments;
    const int points = m_kind.way == Way::Circle ? 2 : 1;
    if (rest.size() < points + 3 || rest.size() > points + 5)
        return Reply::refused(BadPayload,
                              m_line.word + QStringLiteral(" needs a point, speed, zone and tool"));
    if (points == 2)
        m_aux = rest.takeFirst();
    m_target = rest.takeFirst();
    m_speedName = rest.takeFirst();
    rest.removeFirst(); // the zone
    m_tool = rest.takeFirst();
    if (!rest.isEmpty() && isQuoted(rest.last()))
        m_weaveFile = unquoted(rest.takeLast());
    m_workObject = rest.value(0);
    return {};
}

Reply Move::plan(const ProgramStage &stage)
{
    const ProjectData project(stage.context);
    const Joints present = stage.robot.joints();
    Frame tool, to, by;
    Reply reply = project.toolTip(m_tool, &tool);
    if (reply.ok())
        reply = target(project, m_target, &to);
    if (reply.ok() && m_kind.way == Way::Circle)
        reply = target(project, m_aux, &by);
    if (!reply.ok())
        return reply;
    const Frame from = arm::forward(present) * tool;
    const auto end = arm::inverse(to * tool.inverse(), present);
    if (m_kind.way == Way::Circle)
        m_path = ProgramPath::circle(from, by.translation(), to, tool);
    else if (m_kind.way == Way::Line)
        m_path = ProgramPath::line(from, to, tool);
    else if (end)
        m_path = ProgramPath::joint(present, *end, tool);
    if (!m_path || !m_path->isPossible(present))
        return Reply::refused(OutOfRange, QStringLiteral("the robot does not get to ") + m_target);
    return {};
}

Reply Move::target(const ProjectData &project, const QString &argument, Frame *frame) const
{
    PointTerm term;
    Frame pose, base;
    QString workObject;
    Reply reply = PointTerm::read(argument, &term);
    if (reply.ok())
        reply = project.point(term.name, &pose, &workObject);
    if (reply.ok() && !m_workObject.isEmpty())
        workObject = m_workObject;
    if (reply.ok())
        reply = project.reference(ProjectData::noFrame, workObject, &base);
    if (!reply.ok())
        return reply;
    const auto &n = term.numbers;
    if (term.kind == PointTerm::Kind::Offs)
        pose.pretranslate(Eigen::Vector3d(n[0], n[1], n[2]));
    else if (term.kind == PointTerm::Kind::RelTool)
        pose = pose * arm::toFrame({n[0], n[1], n[2], n[3], n[4], n[5]});
    *frame = base * pose;
    return {};
}

std::optional<Reply> Move::step(ProgramStage &stage)
{
    if (stage.weld.process().wantsReturn())
        stage.speed = goBack(stage);
    else if (!stage.weld.holdsTorch())
        stage.speed = wantedSpeed(stage);
    m_way = std::min(m_path->length(), m_way + stage.speed / 1000);
    ++m_ms;
    Reply placed = place(stage);
    if (!placed.ok() || (m_way >= m_path->length() && !stage.weld.holdsTorch()))
        return placed;
    return {};
}

// Along a seam the file says how fast; a test run has a speed of its own for everything.
double Move::wantedSpeed(const ProgramStage &stage) const
{
    if (stage.dryRunSpeed > 0)
        return stage.dryRunSpeed;
    const double seamSpeed = m_kind.welds ? stage.weld.seamSpeed() : 0;
    return seamSpeed > 0 ? seamSpeed : m_speed;
}

double Move::goBack(ProgramStage &stage)
{
    if (!m_back)
        m_back = std::max(0.0, m_way - stage.weld.process().weld().backDistance);
    const double stepBack = std::min(m_speed, (m_way - *m_back) * 1000);
    if (stepBack > 0)
        return -stepBack;
    m_back.reset();
    stage.weld.returned();
    return 0;
}

Reply Move::place(ProgramStage &stage)
{
    const bool atEnd = m_way >= m_path->length();
    const double aside = m_weave && !atEnd ? m_weave->aside(m_way, m_ms) : 0;
    const auto joints = m_path->at(m_way, stage.robot.joints(), aside);
    if (!joints)
        return Reply::refused(OutOfRange, QStringLiteral("the robot does not get there"));
    stage.robot.place(*joints);
    return {};
}

} // namespace

std::unique_ptr<ProgramInstruction> makeMove(const ProgramLine &line)
{
    const MoveKind *kind = kindNamed(line.word);
    return kind ? std::make_unique<Move>(line, *kind) : nullptr;
}

} // namespace welmo::controller
