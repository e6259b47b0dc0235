#include "controller/robot/project.h"

#include <QSet>

#include "controller/core/fields.h"
#include "controller/robot/projectseed.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

const QString systemList = QStringLiteral(".system_list");
const QString ownList = QStringLiteral("._list");

bool isList(const QString &key)
{
    static const QStringList kinds{QStringLiteral("var"), QStringLiteral("tool"),
                                   QStringLiteral("wobj"), QStringLiteral("point"),
                                   QStringLiteral("user_frame")};
    return kinds.contains(key.section(QLatin1Char('.'), 0, 0))
        && (key.endsWith(systemList) || key.endsWith(ownList)) && key.count(QLatin1Char('.')) == 1;
}

// Every item must be a map with a name and an id of its own.
Reply checkedItems(const QVariant &payload)
{
    static const Fields fields{text("id"), text("name")};
    if (payload.userType() != QMetaType::QVariantList)
        return Reply::refused(BadPayload, QStringLiteral("the payload is no list"));
    const QVariantList items = payload.toList();
    QSet<QString> ids;
    for (const QVariant &item : items) {
        Reply reply = checked(item, fields, Missing::Refused);
        if (!reply.ok())
            return reply;
        ids.insert(childAt(item, QStringLiteral("id")).toString());
    }
    return ids.size() == items.size()
        ? Reply::with(items)
        : Reply::refused(BadPayload, QStringLiteral("two items have the same id"));
}

} // namespace

Project::Project(ControllerContext &context, Registry &registry)
    : m_context(context)
{
    registry.addEntries(
        names::project, [this](const QString &key) { return readLists(key); },
        [this](const QString &key, const QVariant &value) { return writeList(key, value); });
    registry.addValue(names::signalDetail, [this] { return m_context.load(names::signalDetail); });
    registry.addValue(
        names::toolPage, [this] { return m_context.load(names::toolPage); },
        [this](const QVariant &value) { return choose(value); });
}

Reply Project::start()
{
    QVector<Store::Change> missing;
    for (const Store::Change &item : projectSeed()) {
        // A damaged list is refused when it is read, but does not prevent the others from being
        // written.
        const Reply present = m_context.load(item.path, item.key);
        if (present.ok() && !present.value.isValid())
            missing.append(item);
    }
    return missing.isEmpty() ? Reply{} : m_context.save(missing);
}

Reply Project::readLists(const QString &key) const
{
    if (isList(key))
        return m_context.load(names::project, key);
    Reply stored = m_context.loadAll(names::project);
    if (!stored.ok())
        return stored;
    QVariantMap lists;
    const QVariantMap flat = stored.value.toMap();
    for (auto list = flat.begin(); list != flat.end(); ++list)
        lists = withChild(lists, list.key(), list.value());
    return Reply::with(key.isEmpty() ? lists : childAt(lists, key));
}

Reply Project::writeList(const QString &key, const QVariant &payload)
{
    if (!isList(key))
        return Reply::refused(UnknownKey, QStringLiteral("the project has no list ") + key);
    if (key.endsWith(systemList))
        return Reply::refused(ReadOnly, key + QStringLiteral(" is built in"));
    Reply items = checkedItems(payload);
    if (!items.ok())
        return items;
    Reply reply = m_context.save(names::project, key, items.value);
    if (reply.ok())
        m_context.notify(names::project, withChild({}, key, items.value));
    return reply;
}

Reply Project::choose(const QVariant &payload)
{
    Reply wanted = checked(payload, {text("tool"), text("wobj")}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    for (const QString &kind : {QStringLiteral("tool"), QStringLiteral("wobj")}) {
        if (!namesIn(kind).contains(childAt(wanted.value, kind).toString()))
            return Reply::refused(OutOfRange, QStringLiteral("there is no such ") + kind);
    }
    Reply reply = m_context.save(names::toolPage, {}, wanted.value);
    if (reply.ok())
        m_context.notify(names::toolPage, wanted.value);
    return reply;
}

QStringList Project::namesIn(const QString &kind) const
{
    QVariantList items = readLists(kind + systemList).value.toList();
    items += readLists(kind + ownList).value.toList();
    QStringList result;
    for (const QVariant &item : qAsConst(items))
        result.append(childAt(item, QStringLiteral("name")).toString());
    return result;
}

} // namespace welmo::controller
