#include "controller/robot.h"

#include "controller/fields.h"
#include "controller/names.h"

namespace controller {

namespace {

const QString toolKey = QStringLiteral("tool");
const QString wobjKey = QStringLiteral("wobj");
const QString noFrame = QStringLiteral("default");

QVariantMap poseMap(const Frame &frame)
{
    const arm::Pose pose = arm::toPose(frame);
    QVariantMap map;
    map = withChild(map, QStringLiteral("frame.pos.x"), pose.x);
    map = withChild(map, QStringLiteral("frame.pos.y"), pose.y);
    map = withChild(map, QStringLiteral("frame.pos.z"), pose.z);
    map = withChild(map, QStringLiteral("frame.ori.euler.a"), pose.a);
    map = withChild(map, QStringLiteral("frame.ori.euler.b"), pose.b);
    return withChild(map, QStringLiteral("frame.ori.euler.c"), pose.c);
}

// The frame in a map that holds it as "pose.frame", as all of the project's do.
Frame frameIn(const QVariant &map)
{
    const QVariant frame = childAt(map, QStringLiteral("pose.frame"));
    const auto at = [&frame](const char *path) {
        return childAt(frame, QString::fromLatin1(path)).toDouble();
    };
    return arm::toFrame({at("pos.x"), at("pos.y"), at("pos.z"), at("ori.euler.a"),
                         at("ori.euler.b"), at("ori.euler.c")});
}

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

Robot::Robot(Cell &cell, Registry &registry)
    : m_cell(cell)
{
    registry.addCommand(names::robotPosition, [this](const Request &request) {
        return position(childAt(request.payload, QStringLiteral("parameters")));
    });
    registry.addCommand(names::moveToPoint,
                        [this](const Request &request) { return moveToPoint(request.payload); });
    registry.addCommand(names::stopMove, [this](const Request &) {
        m_motion.stop();
        return Reply{};
    });
}

Reply Robot::position(const QVariant &parameters) const
{
    const Reply wanted = checked(parameters, {text("tool"), text("wobj")}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    Frame tip, base;
    Reply reply = toolTip(childAt(wanted.value, toolKey).toString(), &tip);
    if (reply.ok())
        reply = reference(noFrame, childAt(wanted.value, wobjKey).toString(), &base);
    if (!reply.ok())
        return reply;
    const Joints &joints = m_motion.joints();
    return Reply::with(
        QVariantMap{{QStringLiteral("pose"), poseMap(base.inverse() * arm::forward(joints) * tip)},
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
    Reply reply = toolTip(word("tool"), &tip);
    if (reply.ok())
        reply = reference(word("coordinate.user_frame"), word("coordinate.wobj.name"), &base);
    if (!reply.ok())
        return reply;
    if (m_motion.isMoving())
        return Reply::refused(WrongState, QStringLiteral("the robot moves"));
    const Frame target = base * frameIn(childAt(wanted.value, QStringLiteral("cartesian")));
    return m_motion.start(m_cell.now(), *way, target, tip)
        ? Reply{}
        : Reply::refused(OutOfRange, QStringLiteral("the robot does not reach it"));
}

Reply Robot::toolTip(const QString &name, Frame *frame) const
{
    QString chosen = name;
    if (name.isEmpty()) {
        const Reply page = m_cell.load(names::toolPage);
        if (!page.ok())
            return page;
        chosen = childAt(page.value, toolKey).toString();
    }
    const Reply tool = item(toolKey, chosen);
    *frame = frameIn(childAt(tool.value, QStringLiteral("tcp")));
    return tool;
}

Reply Robot::reference(const QString &userFrame, const QString &workObject, Frame *frame) const
{
    *frame = Frame::Identity();
    Reply object;
    if (workObject != noFrame)
        object = item(wobjKey, workObject);
    if (!object.ok())
        return object;
    QString user = userFrame;
    if (user == noFrame && workObject != noFrame)
        user = childAt(object.value, QStringLiteral("user_frame")).toString();
    Reply outer;
    if (user != noFrame)
        outer = item(QStringLiteral("user_frame"), user);
    *frame = frameIn(childAt(outer.value, QStringLiteral("frame")))
        * frameIn(childAt(object.value, QStringLiteral("frame")));
    return outer;
}

Reply Robot::item(const QString &kind, const QString &name) const
{
    for (const char *list : {".system_list", "._list"}) {
        const Reply stored = m_cell.load(names::project, kind + QString::fromLatin1(list));
        if (!stored.ok())
            return stored;
        const QVariantList items = stored.value.toList();
        for (const QVariant &entry : items) {
            if (childAt(entry, QStringLiteral("name")) == name)
                return Reply::with(entry);
        }
    }
    return Reply::refused(OutOfRange, QStringLiteral("there is no %1 %2").arg(kind, name));
}

} // namespace controller
