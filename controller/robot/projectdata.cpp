#include "controller/robot/projectdata.h"

#include "controller/core/fields.h"
#include "controller/core/reason.h"
#include "schema/names.h"

namespace welmo::controller {

const QString ProjectData::noFrame = QStringLiteral("default");

Frame ProjectData::frameIn(const QVariant &map)
{
    const QVariant frame = childAt(map, QStringLiteral("pose.frame"));
    const auto at = [&frame](const char *path) {
        return childAt(frame, QString::fromLatin1(path)).toDouble();
    };
    return arm::toFrame({at("pos.x"), at("pos.y"), at("pos.z"), at("ori.euler.a"),
                         at("ori.euler.b"), at("ori.euler.c")});
}

QVariantMap ProjectData::poseMap(const Frame &frame)
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

Reply ProjectData::toolTip(const QString &name, Frame *frame) const
{
    const QString kind = QStringLiteral("tool");
    Reply tool = item(kind, chosen(kind, name));
    *frame = frameIn(childAt(tool.value, QStringLiteral("tcp")));
    return tool;
}

QString ProjectData::chosen(const QString &kind, const QString &name) const
{
    return name.isEmpty() ? childAt(m_reader.load(names::toolPage).value, kind).toString() : name;
}

Reply ProjectData::reference(const QString &userFrame, const QString &workObject,
                             Frame *frame) const
{
    *frame = Frame::Identity();
    Reply object;
    if (workObject != noFrame)
        object = item(QStringLiteral("wobj"), workObject);
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

Reply ProjectData::point(const QString &name, Frame *frame, QString *workObject) const
{
    Reply point = item(QStringLiteral("point"), name);
    *frame = frameIn(childAt(point.value, QStringLiteral("cart")));
    const QString own = childAt(point.value, QStringLiteral("wobj")).toString();
    *workObject = own.isEmpty() ? noFrame : own;
    return point;
}

Reply ProjectData::speed(const QString &name, double *speed) const
{
    Reply variable = item(QStringLiteral("var"), name);
    if (!variable.ok())
        return variable;
    *speed = childAt(variable.value, QStringLiteral("value.linear")).toDouble();
    return *speed > 0
        ? Reply{}
        : refusedFor(OutOfRange, {QStringLiteral("no_item"), {QStringLiteral("speed"), name}},
                     name + QStringLiteral(" is no speed"));
}

Reply ProjectData::zone(const QString &name) const
{
    Reply variable = item(QStringLiteral("var"), name);
    if (!variable.ok() || childAt(variable.value, QStringLiteral("type")) == QLatin1String("zone"))
        return variable;
    return Reply::refused(OutOfRange, name + QStringLiteral(" is no zone"));
}

Reply ProjectData::item(const QString &kind, const QString &name) const
{
    for (const char *list : {".system_list", "._list"}) {
        Reply stored = m_reader.load(names::project, kind + QString::fromLatin1(list));
        if (!stored.ok())
            return stored;
        const QVariantList items = stored.value.toList();
        for (const QVariant &entry : items) {
            if (childAt(entry, QStringLiteral("name")) == name)
                return Reply::with(entry);
        }
    }
    return refusedFor(OutOfRange, {QStringLiteral("no_item"), {kind, name}},
                      QStringLiteral("there is no %1 %2").arg(kind, name));
}

} // namespace welmo::controller
