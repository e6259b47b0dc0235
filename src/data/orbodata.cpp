#include "data/orbodata.h"

#include <QSharedPointer>
#include <utility>

#include <kelp/moduleobject.h>

namespace {

const QString speedType = QStringLiteral("speed");
const QString zoneType = QStringLiteral("zone");

QString text(const kelp::ModuleObject *entry, const char *key)
{
    return entry->r(QString::fromLatin1(key))->getString(QString());
}

QList<kelp::ModuleObject *> entries(const QString &kind)
{
    return m(QStringLiteral("orbo.project.%1.system_list").arg(kind))->cmobjs(false)
        + m(QStringLiteral("orbo.project.%1._list").arg(kind))->cmobjs(false);
}

QStringList names(const QString &kind)
{
    QStringList list;
    for (const kelp::ModuleObject *entry : entries(kind))
        list.append(text(entry, "name"));
    return list;
}

} // namespace

QString OrboData::getCurrentTool()
{
    return m(QStringLiteral("orbo.toolpage.tool"))->getString(QString());
}

QString OrboData::getCurrentWobj()
{
    return m(QStringLiteral("orbo.toolpage.wobj"))->getString(QString());
}

QStringList OrboData::getSpeedList()
{
    return getSpeedAndZoneList().value(speedType);
}

QStringList OrboData::getZoneList()
{
    return getSpeedAndZoneList().value(zoneType);
}

QMap<QString, QStringList> OrboData::getSpeedAndZoneList()
{
    QMap<QString, QStringList> lists{{speedType, {}}, {zoneType, {}}};
    for (const kelp::ModuleObject *variable : entries(QStringLiteral("var"))) {
        const auto list = lists.find(text(variable, "type"));
        if (list != lists.end())
            list->append(text(variable, "name"));
    }
    return lists;
}

QStringList OrboData::getToolList()
{
    return names(QStringLiteral("tool"));
}

QStringList OrboData::getWobjList()
{
    return names(QStringLiteral("wobj"));
}

void welmo::onProjectChanged(QObject *context, const std::function<void()> &action)
{
    const auto isDue = QSharedPointer<bool>::create(false);
    const auto look = [isDue, action] {
        *isDue = false;
        action();
    };
    for (const char *name : {"project", "toolpage"}) {
        kelp::ModuleObject *node = m(QStringLiteral("orbo"))->c(QString::fromLatin1(name), true);
        node->watch(true, true);
        QObject::connect(node, &kelp::ModuleObject::changed, context, [context, isDue, look] {
            if (!std::exchange(*isDue, true))
                QMetaObject::invokeMethod(context, look, Qt::QueuedConnection);
        });
    }
}
