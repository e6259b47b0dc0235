#include <algorithm>

#include "controller/core/reason.h"
#include "controller/program/moveplan.h"
#include "controller/program/programinstruction.h"
#include "controller/program/travel.h"
#include "controller/robot/robot.h"
#include "controller/welding/weld.h"

namespace welmo::controller {

namespace {

/// [AuxPoint,] ToPoint, Speed, Zone, Tool [, Wobj] [, "weavedata"]. Every point is reached exactly,
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
    std::unique_ptr<ProgramInstruction> undo() const override;

protected:
    Reply setOut(ProgramStage &stage, const SeamTrack::Leg &leg, double way, double until);

    tl::ParsedLine m_line;
    Way m_way;
    bool m_welds;
    double m_speed = 0; // mm/s

private:
    double wantedSpeed(const ProgramStage &stage) const;
    double goBack(ProgramStage &stage);
    Reply place(ProgramStage &stage);

    std::shared_ptr<const ProgramPath> m_path;
    std::optional<Weave> m_weave;
    double m_gone = 0; // mm along the path
    double m_until = 0; // mm along the path, where the move ends
    int m_ms = 0;
    std::optional<double> m_back; // mm along the path, to which the torch returns
};

Reply Move::begin(ProgramStage &stage)
{
    MovePlan plan;
    Reply reply =
        MovePlan::make(ProjectData(stage.context), m_line, m_way, stage.robot.joints(), &plan);
    std::optional<Weave> weave;
    if (reply.ok() && m_welds) {
        weave = stage.weave;
        if (const QString file = m_line.weaveFile(); !file.isEmpty())
            reply = readWeave(stage.context, file, &weave);
    }
    if (!reply.ok())
        return reply;
    m_speed = plan.speed;
    if (stage.weld.hasSeam())
        stage.seamLength += plan.path->length();
    return setOut(stage, {stage.line, plan.path, plan.tool, weave, 0}, 0, plan.path->length());
}

Reply Move::setOut(ProgramStage &stage, const SeamTrack::Leg &leg, double way, double until)
{
    m_path = leg.path;
    m_weave = leg.weave;
    m_gone = way;
    m_until = until;
    stage.track.beginLeg(leg);
    stage.track.setWay(m_gone);
    return {};
}

std::optional<Reply> Move::step(ProgramStage &stage)
{
    if (stage.weld.process().wantsReturn())
        stage.speed = goBack(stage);
    else if (!stage.weld.holdsTorch())
        stage.speed = wantedSpeed(stage);
    m_gone = std::min(m_until, m_gone + stage.speed / 1000);
    ++m_ms;
    stage.track.setWay(m_gone);
    Reply placed = place(stage);
    if (!placed.ok() || (m_gone >= m_until && !stage.weld.holdsTorch()))
        return placed;
    return {};
}

// A test run has one speed for all moves; along a seam the welding file's speed counts.
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
    const bool atEnd = m_gone >= m_until;
    const double aside = m_weave && !atEnd ? m_weave->aside(m_gone, m_ms) : 0;
    const auto joints = m_path->at(m_gone, stage.robot.joints(), aside);
    if (!joints)
        return refusedFor(OutOfRange, {QStringLiteral("out_of_reach"), {m_line.target->token.text}},
                          QStringLiteral("the robot does not get there"));
    stage.robot.place(*joints);
    return {};
}

std::unique_ptr<ProgramInstruction> Move::undo() const
{
    return makeTravelBack(m_path, m_gone, m_speed);
}

/// A part of a move that was begun in an earlier run.
class MoveOn : public Move
{
public:
    MoveOn(tl::ParsedLine line, SeamTrack::Leg leg, double way, std::optional<double> until)
        : Move(std::move(line), Way::Line)
        , m_leg(std::move(leg))
        , m_from(way)
        , m_to(until.value_or(m_leg.path->length()))
    { }

    Reply begin(ProgramStage &stage) override
    {
        const Reply reply = ProjectData(stage.context).speed(m_line.speed->text, &m_speed);
        return reply.ok() ? setOut(stage, m_leg, m_from, m_to) : reply;
    }

private:
    SeamTrack::Leg m_leg;
    double m_from, m_to;
};

} // namespace

std::unique_ptr<ProgramInstruction> makeMove(const tl::ParsedLine &line)
{
    return std::make_unique<Move>(line, *wayOf(line.instruction->word));
}

std::unique_ptr<ProgramInstruction> makeMoveOn(const tl::ParsedLine &line,
                                               const SeamTrack::Leg &leg, double way,
                                               std::optional<double> until)
{
    return std::make_unique<MoveOn>(line, leg, way, until);
}

} // namespace welmo::controller
