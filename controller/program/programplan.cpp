#include "controller/program/programplan.h"

#include <algorithm>
#include <cmath>

#include "controller/program/moveplan.h"
#include "controller/program/programinstruction.h"
#include "controller/welding/welddata.h"
#include "schema/filesets.h"

namespace welmo::controller {

namespace {

constexpr double millisecond = 0.001;
constexpr double wayStep = 4; // mm between two places of a path
constexpr double weaveStep = 0.25;
constexpr int mostSteps = 2000;

/// Goes through the lines as a run would.
class Planner
{
public:
    Planner(const Reader &reader, const Joints &from)
        : m_reader(reader)
        , m_project(reader)
        , m_joints(from)
    { }

    void carryOut(const tl::ParsedLine &line, int number);
    ProgramPlan take() { return std::move(m_plan); }

private:
    bool perform(const tl::ParsedLine &line, int number);
    bool move(const tl::ParsedLine &line, int number, Way way);
    bool arcOn(const tl::ParsedLine &line);
    bool arcOff(const tl::ParsedLine &line);
    std::optional<QVariantMap> file(const schema::FileSet &set, const QString &name) const;
    std::vector<ProgramPlan::Place> places(const MovePlan &plan, const Weave *weave, double speed);
    void pass(double seconds) { m_plan.seconds += seconds; }
    void burn(double seconds, double current, int ramp);

    const Reader &m_reader;
    ProjectData m_project;
    Joints m_joints;
    std::optional<ArcWeld> m_seam;
    QString m_seamFile;
    std::optional<Weave> m_weave;
    double m_current = 0; // of the arc, in A
    ProgramPlan m_plan;
};

void Planner::carryOut(const tl::ParsedLine &line, int number)
{
    if (!line.hasCode() || !line.instruction)
        return;
    if (!line.problems.isEmpty() || !perform(line, number))
        m_plan.failed.push_back(number);
}

bool Planner::perform(const tl::ParsedLine &line, int number)
{
    if (const auto way = wayOf(line.instruction->word))
        return move(line, number, *way);
    switch (line.instruction->word) {
    case tl::Word::ArcOn:
        return arcOn(line);
    case tl::Word::ArcOff:
        return arcOff(line);
    case tl::Word::WeaveOn:
        return readWeave(m_reader, *line.files[0], &m_weave).ok();
    case tl::Word::WeaveOff:
        m_weave.reset();
        return true;
    default:
        pass(line.seconds.value_or(0));
        return true;
    }
}

bool Planner::arcOn(const tl::ParsedLine &line)
{
    const auto start = file(schema::arcOn(), *line.files[0]);
    const auto weld = file(schema::weld(), *line.files[1]);
    if (!start || !weld)
        return false;
    const ArcStart data = ArcStart::from(*start);
    m_seam = ArcWeld::from(*weld);
    m_seamFile = *line.files[1];
    pass((data.preFlow + data.lead) * millisecond);
    m_plan.wire += data.slowWireSpeed * data.lead * millisecond / 60;
    m_current = 0;
    burn(data.stay * millisecond, data.setpoint.current, data.ramp);
    return true;
}

bool Planner::arcOff(const tl::ParsedLine &line)
{
    const auto end = file(schema::arcOff(), *line.files[0]);
    if (!end)
        return false;
    const ArcEnd data = ArcEnd::from(*end);
    if (m_seam)
        burn(data.hold * millisecond, data.setpoint.current, std::min(m_seam->ramp, data.hold));
    m_seam.reset();
    return true;
}

bool Planner::move(const tl::ParsedLine &line, int number, Way way)
{
    MovePlan plan;
    std::optional<Weave> weave;
    if (!MovePlan::make(m_project, line, way, m_joints, &plan).ok())
        return false;
    const bool welds = line.instruction->mayWeave;
    if (welds)
        weave = m_weave;
    if (welds && !line.weaveFile().isEmpty() && !readWeave(m_reader, line.weaveFile(), &weave).ok())
        return false;
    const double speed = welds && m_seam && m_seam->speed > 0 ? m_seam->speed : plan.speed;
    const double length = plan.path->length();
    const tl::PointExpression &target = line.target->reading.point;
    ProgramPlan::Leg leg{number,
                         m_seam.has_value(),
                         m_seamFile,
                         target.name,
                         target.kind != tl::PointExpression::Kind::Plain,
                         length,
                         length / speed,
                         {},
                         {}};
    if (weave)
        leg.weave = places(plan, &*weave, speed);
    leg.way = places(plan, nullptr, speed);
    if (m_seam) {
        burn(leg.seconds, m_seam->setpoint.current, m_seam->ramp);
        m_plan.seamLength += length;
    } else {
        pass(leg.seconds);
    }
    m_plan.legs.push_back(std::move(leg));
    m_joints = *plan.path->at(length, m_joints);
    return true;
}

std::vector<ProgramPlan::Place> Planner::places(const MovePlan &plan, const Weave *weave,
                                                double speed)
{
    const double length = plan.path->length();
    const int steps = std::clamp(int(length / (weave ? weaveStep : wayStep)), 1, mostSteps);
    std::vector<ProgramPlan::Place> result;
    Joints present = m_joints;
    for (int step = 0; step <= steps; ++step) {
        const double way = length * step / steps;
        const int ms = int(way / speed / millisecond);
        const auto joints = plan.path->at(way, present, weave ? weave->aside(way, ms) : 0);
        if (!joints)
            continue;
        present = *joints;
        const Eigen::Vector3d tip = (arm::forward(present) * plan.tool).translation();
        result.push_back({tip.x(), tip.y(), tip.z()});
    }
    return result;
}

std::optional<QVariantMap> Planner::file(const schema::FileSet &set, const QString &name) const
{
    const Reply stored = set.hasFile(name) ? m_reader.load(set.node(), name) : Reply{};
    return stored.ok() && stored.value.isValid() ? std::make_optional(stored.value.toMap())
                                                 : std::nullopt;
}

// The current changes evenly to its target.
void Planner::burn(double seconds, double current, int ramp)
{
    const double ramping = std::min(seconds, ramp * millisecond);
    const double reached =
        ramp > 0 ? m_current + (current - m_current) * ramping / (ramp * millisecond) : current;
    m_plan.wire += (wireSpeedAt((m_current + reached) / 2) * ramping
                    + wireSpeedAt(reached) * (seconds - ramping))
        / 60;
    m_current = reached;
    m_plan.arcSeconds += seconds;
    pass(seconds);
}

} // namespace

ProgramPlan ProgramPlan::make(const Reader &reader, const std::vector<tl::ParsedLine> &lines,
                              const Joints &from)
{
    Planner planner(reader, from);
    for (size_t i = 0; i < lines.size(); ++i)
        planner.carryOut(lines[i], int(i));
    return planner.take();
}

} // namespace welmo::controller
