#include "controller/robot/robot.h"

#include <utility>

#include "controller/core/fields.h"
#include "controller/core/reason.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

const Fields &moveFields()
{
    static const Fields fields{number("cartesian.pose.frame.pos.x", -10000, 10000),
                               number("cartesian.pose.frame.pos.y", -10000, 10000),
                               number("cartesian.pose.frame.pos.z", -10000, 10000),
                               number("cartesian.pose.frame.ori.euler.a", -360, 360),
                               number("cartesian.pose.frame.ori.euler.b", -360, 360),
                               number("cartesian.pose.frame.ori.euler.c", -360, 360),
                               text("coordinate.user_frame"),
                               text("coordinate.wobj.name"),
                               text("movetype")};
    return fields;
}

std::optional<RobotMotion::Way> wayNamed(const QString &name)
{
    if (name == QLatin1String("joint"))
        return RobotMotion::Way::Joint;
    if (name == QLatin1String("linear"))
        return RobotMotion::Way::Linear;
    return {};
}

} // namespace

Robot::Robot(ControllerContext &context, Registry &registry, const Surroundings &surroundings)
    : m_context(context)
    , m_surroundings(surroundings)
    , m_project(context)
{
    registry.addCommand(names::robotPosition, [this](const Request &request) {
        return position(childAt(request.payload, QStringLiteral("parameters")));
    });
    registry.addCommand(names::moveToPoint,
                        [this](const Request &request) { return moveToPoint(request.payload); });
    registry.addCommand(names::stopMove, [this](const Request &) {
        stop();
        return Reply{};
    });
    registry.addValue(names::robotState, [this] { return Reply::with(node()); });
}

Reply Robot::start()
{
    m_toldWords = words();
    m_toldJoints = m_motion.joints();
    return {};
}

void Robot::tick()
{
    const bool moved = m_motion.isMoving();
    const bool jogged = m_motion.isJogging();
    if (moved)
        watchOver();
    m_motion.advance(m_context.now());
    if (moved && !m_motion.isMoving() && m_motion.hasArrived())
        end("arrived", {});
    else if (jogged && !m_motion.isMoving() && m_reason.isEmpty())
        end("stopped", {QStringLiteral("jog_limit")});
    tell();
}

// In manual mode a person stands beside the robot, who needs the pendant to stop it.
void Robot::watchOver()
{
    Reason why = m_surroundings.hindrance();
    if (why.isEmpty() && m_surroundings.switches.automatic)
        why = {QStringLiteral("automatic")};
    else if (why.isEmpty() && m_surroundings.pendant.isGone(m_context.now()))
        why = {QStringLiteral("pendant_gone")};
    if (why.isEmpty())
        return;
    m_motion.stop();
    end("stopped", why);
}

void Robot::stop()
{
    if (m_motion.isMoving())
        end("stopped", {});
    m_motion.stop();
    m_stopWanted = m_seized;
}

void Robot::end(const char *how, const Reason &reason)
{
    ++m_ends;
    m_end = QString::fromLatin1(how);
    m_reason = reason;
}

Reply Robot::position(const QVariant &parameters) const
{
    Reply wanted = checked(parameters, {text("tool"), text("wobj")}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    Frame tip, base;
    Reply reply = m_project.toolTip(childAt(wanted.value, QStringLiteral("tool")).toString(), &tip);
    if (reply.ok())
        reply = m_project.reference(
            ProjectData::noFrame, childAt(wanted.value, QStringLiteral("wobj")).toString(), &base);
    if (!reply.ok())
        return reply;
    const Joints &joints = m_motion.joints();
    return Reply::with(QVariantMap{
        {QStringLiteral("pose"), ProjectData::poseMap(base.inverse() * arm::forward(joints) * tip)},
        {QStringLiteral("q"), QVariantList(joints.begin(), joints.end())}});
}

Reply Robot::moveToPoint(const QVariant &payload)
{
    const Reply reply = tryToMove(payload);
    if (!reply.ok())
        end("refused", reasonOf(reply));
    tell();
    return reply;
}

Reply Robot::mayMove() const
{
    Reason why = m_surroundings.hindrance();
    if (why.isEmpty() && m_surroundings.switches.automatic)
        why = {QStringLiteral("automatic")};
    if (why.isEmpty() && m_seized)
        why = {QStringLiteral("program_has_robot")};
    if (why.isEmpty() && m_motion.isMoving())
        why = {QStringLiteral("robot_moves")};
    return why.isEmpty() ? Reply{} : refusedFor(WrongState, why, why.code);
}

Reply Robot::jog(const Jog &jog)
{
    const Reply reply = mayMove();
    if (reply.ok()) {
        m_reason = {};
        m_motion.jog(m_context.now(), jog);
    }
    return reply;
}

void Robot::stopJog()
{
    if (m_motion.isJogging())
        m_motion.stop();
}

Reply Robot::tryToMove(const QVariant &payload)
{
    Reply wanted = checked(payload, moveFields(), Missing::Refused);
    if (wanted.ok())
        wanted = checked(wanted.value, {text("tool")}, Missing::Allowed);
    if (!wanted.ok())
        return wanted;
    const auto word = [&wanted](const char *path) {
        return childAt(wanted.value, QString::fromLatin1(path)).toString();
    };
    const auto way = wayNamed(word("movetype"));
    if (!way)
        return Reply::refused(BadPayload, QStringLiteral("movetype is neither joint nor linear"));
    Frame tip, base;
    Reply reply = m_project.toolTip(word("tool"), &tip);
    if (reply.ok())
        reply =
            m_project.reference(word("coordinate.user_frame"), word("coordinate.wobj.name"), &base);
    if (!reply.ok())
        return reply;
    reply = mayMove();
    if (!reply.ok())
        return reply;
    const Frame target =
        base * ProjectData::frameIn(childAt(wanted.value, QStringLiteral("cartesian")));
    return m_motion.start(m_context.now(), *way, target, tip)
        ? Reply{}
        : refusedFor(OutOfRange, {QStringLiteral("unreachable")},
                     QStringLiteral("the robot does not reach it"));
}

Reply Robot::seize()
{
    if (m_motion.isMoving())
        return Reply::refused(WrongState, QStringLiteral("the robot moves"));
    m_seized = true;
    m_stopWanted = false;
    return {};
}

QVariantMap Robot::words() const
{
    const char *state = m_motion.isJogging() ? "jogs"
        : m_motion.isMoving()                ? "moves"
        : m_seized                           ? "program"
                                             : "still";
    return {{QStringLiteral("state"), QString::fromLatin1(state)},
            {QStringLiteral("ends"), m_ends},
            {QStringLiteral("end"), m_end},
            {QStringLiteral("reason"), m_reason.code},
            {QStringLiteral("arguments"), m_reason.arguments}};
}

QVariantMap Robot::node() const
{
    QVariantMap map = words();
    Frame tool, base;
    m_project.toolTip({}, &tool);
    m_project.reference(ProjectData::noFrame, m_project.chosen(QStringLiteral("wobj"), {}), &base);
    const Joints &joints = m_motion.joints();
    const Frame tip = arm::forward(joints) * tool;
    const arm::Pose pose = arm::toPose(base.inverse() * tip);
    map.insert(QStringLiteral("q"), QVariantList(joints.begin(), joints.end()));
    map.insert(QStringLiteral("tip"),
               QVariantMap{{QStringLiteral("x"), tip.translation().x()},
                           {QStringLiteral("y"), tip.translation().y()},
                           {QStringLiteral("z"), tip.translation().z()}});
    map.insert(QStringLiteral("pose"),
               QVariantMap{{QStringLiteral("x"), pose.x},
                           {QStringLiteral("y"), pose.y},
                           {QStringLiteral("z"), pose.z},
                           {QStringLiteral("a"), pose.a},
                           {QStringLiteral("b"), pose.b},
                           {QStringLiteral("c"), pose.c}});
    return map;
}

void Robot::tell()
{
    constexpr qint64 paceOfPlaces = 100; // ms between notifications of the arm's place
    const QVariantMap now = words();
    const bool isDue = isUntold() && m_context.now() - m_toldAt >= paceOfPlaces;
    if (now == m_toldWords && !isDue)
        return;
    m_toldWords = now;
    m_toldJoints = m_motion.joints();
    m_toldAt = m_context.now();
    m_context.notify(names::robotState, node());
}

bool Robot::takeStop()
{
    return std::exchange(m_stopWanted, false);
}

} // namespace welmo::controller
