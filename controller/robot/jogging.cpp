#include "controller/robot/jogging.h"

#include <algorithm>
#include <initializer_list>

#include "controller/core/fields.h"
#include "schema/names.h"

using Event = welmo::controller::Journal::Event;

namespace welmo::controller {

namespace {

// The axis's place among @p names, from 0; -1 if it is not there.
int indexIn(std::initializer_list<const char *> names, const QString &axis)
{
    const auto *found = std::find_if(names.begin(), names.end(), [&axis](const char *name) {
        return axis == QLatin1String(name);
    });
    return found == names.end() ? -1 : int(found - names.begin());
}

QString word(const QVariant &payload, const char *key)
{
    return childAt(payload, QString::fromLatin1(key)).toString();
}

} // namespace

Jogging::Jogging(ControllerContext &context, Registry &registry, Robot &robot, HoldToRun &hold)
    : m_context(context)
    , m_robot(robot)
    , m_hold(hold)
{
    registry.addCommand(names::startJog,
                        [this](const Request &request) { return begin(request.payload); });
    registry.addCommand(names::stopJog, [this](const Request &) {
        stop(names::stopJog);
        return Reply{};
    });
}

int Jogging::paceMs() const
{
    return m_robot.isJogging() ? HoldToRun::paceMs : Subsystem::paceMs();
}

void Jogging::tick()
{
    if (!m_robot.isJogging() && m_press > 0)
        stop(QStringLiteral("the robot stopped"));
    else if (const QString why = m_hold.failure(m_context.now(), m_press); !why.isEmpty())
        stop(why);
}

void Jogging::stop(const QString &cause)
{
    if (m_press == 0)
        return;
    m_press = 0;
    m_robot.stopJog();
    m_context.record(Event::JogStops, cause);
}

Reply Jogging::begin(const QVariant &payload)
{
    Jog jog;
    int press = 0;
    const Reply held = m_hold.start(m_context.now(), &press);
    Reply reply = read(payload, &jog);
    if (reply.ok())
        reply = held;
    if (reply.ok())
        reply = m_robot.jog(jog);
    if (!reply.ok())
        return reply;
    m_press = press;
    m_context.record(Event::Jogs, word(payload, "axis"));
    return {};
}

Reply Jogging::read(const QVariant &payload, Jog *jog) const
{
    Reply wanted =
        checked(payload, {text("axis"), integer("direction", -1, 1), number("override", 0.01, 1)},
                Missing::Refused);
    if (wanted.ok())
        wanted =
            checked(wanted.value, {text("frame"), text("tool"), text("wobj")}, Missing::Allowed);
    Frame frame = Frame::Identity();
    Reply reply = wanted.ok() ? readFrame(wanted.value, jog, &frame) : wanted;
    if (!reply.ok())
        return reply;
    const QString axis = word(wanted.value, "axis");
    const int along = indexIn({"x", "y", "z"}, axis);
    const int about = indexIn({"a", "b", "c"}, axis);
    jog->joint = indexIn({"j1", "j2", "j3", "j4", "j5", "j6"}, axis);
    if (along < 0 && about < 0 && jog->joint < 0)
        return Reply::refused(BadPayload, QStringLiteral("no axis of the name ") + axis);
    jog->kind = along >= 0 ? Jog::Kind::Along : about >= 0 ? Jog::Kind::About : Jog::Kind::Joint;
    if (jog->kind != Jog::Kind::Joint)
        jog->axis = frame.linear().col(along >= 0 ? along : about);
    const double full = along >= 0 ? RobotMotion::linearSpeed
        : about >= 0               ? RobotMotion::turningSpeed
                                   : RobotMotion::jointSpeed;
    jog->speed = full * childAt(wanted.value, QStringLiteral("override")).toDouble()
        * childAt(wanted.value, QStringLiteral("direction")).toInt();
    return {};
}

Reply Jogging::readFrame(const QVariant &payload, Jog *jog, Frame *frame) const
{
    const ProjectData project(m_context);
    const QString name = word(payload, "frame");
    Reply reply = project.toolTip(word(payload, "tool"), &jog->tool);
    if (!reply.ok() || name.isEmpty() || name == QLatin1String("base"))
        return reply;
    if (name == QLatin1String("tool"))
        *frame = arm::forward(m_robot.joints()) * jog->tool;
    else if (name == QLatin1String("wobj"))
        reply =
            project.reference(ProjectData::noFrame,
                              project.chosen(QStringLiteral("wobj"), word(payload, "wobj")), frame);
    else
        reply = Reply::refused(BadPayload, QStringLiteral("no frame of the name ") + name);
    return reply;
}

} // namespace welmo::controller
