#include "controller/program/travel.h"

#include <algorithm>
#include <functional>

#include "controller/core/reason.h"
#include "controller/robot/robot.h"

namespace welmo::controller {

namespace {

constexpr double travelSpeed = 100; // mm/s
constexpr double clearance = 50; // mm, between the torch and the work

using Path = std::shared_ptr<const ProgramPath>;
using Paths = std::vector<Path>;

/// A path in reverse, from @p way mm of it.
class Reversed : public ProgramPath
{
public:
    Reversed(Path path, double way)
        : ProgramPath(way)
        , m_path(std::move(path))
    { }

    std::optional<Joints> at(double way, const Joints &present, double aside) const override
    {
        return m_path->at(length() - way, present, aside);
    }

private:
    Path m_path;
};

/// Moves along several paths in turn.
class Travel : public ProgramInstruction
{
public:
    using Plan = std::function<Paths(const Joints &from)>;

    Travel(Plan plan, double speed)
        : m_plan(std::move(plan))
        , m_speed(speed)
    { }

    Reply begin(ProgramStage &stage) override
    {
        m_paths = m_plan(stage.robot.joints());
        return {};
    }
    std::optional<Reply> step(ProgramStage &stage) override
    {
        if (m_paths.empty())
            return Reply{};
        stage.speed = stage.dryRunSpeed > 0 ? stage.dryRunSpeed : m_speed;
        const ProgramPath &path = *m_paths.front();
        m_gone = std::min(path.length(), m_gone + stage.speed / 1000);
        const auto joints = path.at(m_gone, stage.robot.joints());
        if (!joints)
            return refusedFor(OutOfRange, {QStringLiteral("out_of_reach"), {QString()}},
                              QStringLiteral("the robot does not get there"));
        stage.robot.place(*joints);
        if (m_gone >= path.length()) {
            m_paths.erase(m_paths.begin());
            m_gone = 0;
        }
        return {};
    }

private:
    Plan m_plan;
    double m_speed;
    Paths m_paths;
    double m_gone = 0; // mm along the first path
};

Frame lifted(const Frame &tip)
{
    return tip * Eigen::Translation3d(0, 0, -clearance);
}

// Appends a straight path and moves @p present to its end; false, with nothing added, if the arm
// cannot follow it.
bool addLine(Paths &paths, Joints &present, const Frame &to, const Frame &tool)
{
    Path line = ProgramPath::line(arm::forward(present) * tool, to, tool);
    const auto end = line->isPossible(present) ? line->at(line->length(), present) : std::nullopt;
    if (!end)
        return false;
    paths.push_back(std::move(line));
    present = *end;
    return true;
}

Paths approach(const SeamTrack::Leg &leg, double way, Joints present)
{
    const auto end = leg.path->at(way, present);
    if (!end)
        return {};
    const Frame to = arm::forward(*end) * leg.tool;
    const Frame from = arm::forward(present) * leg.tool;
    Paths paths;
    if ((to.translation() - from.translation()).norm() > clearance) {
        addLine(paths, present, lifted(from), leg.tool);
        addLine(paths, present, lifted(to), leg.tool);
    }
    if (!addLine(paths, present, to, leg.tool))
        paths.push_back(ProgramPath::joint(present, *end, leg.tool));
    return paths;
}

} // namespace

std::unique_ptr<ProgramInstruction> makeTravelBack(std::shared_ptr<const ProgramPath> path,
                                                   double way, double speed)
{
    Path back = std::make_shared<Reversed>(std::move(path), way);
    return std::make_unique<Travel>([back](const Joints &) { return Paths{back}; }, speed);
}

std::unique_ptr<ProgramInstruction> makeApproach(const SeamTrack::Leg &leg, double way)
{
    return std::make_unique<Travel>(
        [leg, way](const Joints &from) { return approach(leg, way, from); }, travelSpeed);
}

std::unique_ptr<ProgramInstruction> makeRetreat(const Frame &tool)
{
    return std::make_unique<Travel>(
        [tool](Joints from) {
            Paths paths;
            addLine(paths, from, lifted(arm::forward(from) * tool), tool);
            return paths;
        },
        travelSpeed);
}

} // namespace welmo::controller
