#include "controller/robot/robot.h"

#include <utility>

#include "controller/core/fields.h"
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

Robot::Robot(ControllerContext &context, Registry &registry)
    : m_context(context)
    , m_project(context)
{
    registry.addCommand(names::robotPosition, [this](const Request &request) {
        return position(childAt(request.payload, QStringLiteral("parameters")));
    });
    registry.addCommand(names::moveToPoint,
                        [this](const Request &request) { return moveToPoint(request.payload); });
    registry.addCommand(names::stopMove, [this](const Request &) {
        m_motion.stop();
        m_stopWanted = m_seized;
        return Reply{};
    });
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
    if (m_motion.isMoving() || m_seized)
        return Reply::refused(WrongState, QStringLiteral("the robot moves"));
    const Frame target =
        base * ProjectData::frameIn(childAt(wanted.value, QStringLiteral("cartesian")));
    return m_motion.start(m_context.now(), *way, target, tip)
        ? Reply{}
        : Reply::refused(OutOfRange, QStringLiteral("the robot does not reach it"));
}

Reply Robot::seize()
{
    if (m_motion.isMoving())
        return Reply::refused(WrongState, QStringLiteral("the robot moves"));
    m_seized = true;
    m_stopWanted = false;
    return {};
}

bool Robot::takeStop()
{
    return std::exchange(m_stopWanted, false);
}

} // namespace welmo::controller
