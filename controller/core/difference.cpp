#include "controller/core/difference.h"

#include <algorithm>

namespace welmo::controller {

namespace {

const QString atKey = QStringLiteral("at");
const QString newKey = QStringLiteral("new");

QString below(const QString &place, const QString &child)
{
    return place.isEmpty() ? child : place + QLatin1Char('.') + child;
}

void collect(const QString &place, const QVariant &before, const QVariant &after,
             QVariantList *found);

void collectMap(const QString &place, const QVariantMap &before, const QVariantMap &after,
                QVariantList *found)
{
    for (auto child = before.begin(); child != before.end(); ++child)
        collect(below(place, child.key()), *child, after.value(child.key()), found);
    for (auto child = after.begin(); child != after.end(); ++child)
        if (!before.contains(child.key()))
            collect(below(place, child.key()), {}, *child, found);
}

void collectList(const QString &place, const QVariantList &before, const QVariantList &after,
                 QVariantList *found)
{
    for (int i = 0; i < std::max(before.size(), after.size()); ++i)
        collect(below(place, QString::number(i)), before.value(i), after.value(i), found);
}

void collect(const QString &place, const QVariant &before, const QVariant &after,
             QVariantList *found)
{
    if (before == after && before.userType() == after.userType())
        return;
    const auto both = [&](int type) {
        return before.userType() == type && after.userType() == type;
    };
    if (both(QMetaType::QVariantMap))
        return collectMap(place, before.toMap(), after.toMap(), found);
    if (both(QMetaType::QVariantList))
        return collectList(place, before.toList(), after.toList(), found);
    QVariantMap change{{atKey, place}};
    if (before.isValid())
        change.insert(QStringLiteral("old"), before);
    if (after.isValid())
        change.insert(newKey, after);
    found->append(change);
}

QVariant changedAt(const QVariant &before, const QStringList &place, const QVariant &after);

QVariant changedList(QVariantList list, const QStringList &place, const QVariant &after)
{
    const int index = place.first().toInt();
    const QVariant item = changedAt(list.value(index), place.mid(1), after);
    if (!item.isValid())
        return list.mid(0, index); // the list became shorter
    if (index >= list.size())
        list.append(item);
    else
        list[index] = item;
    return list;
}

QVariant changedAt(const QVariant &before, const QStringList &place, const QVariant &after)
{
    if (place.isEmpty())
        return after;
    if (before.userType() == QMetaType::QVariantList)
        return changedList(before.toList(), place, after);
    QVariantMap map = before.toMap();
    const QVariant child = changedAt(map.value(place.first()), place.mid(1), after);
    if (child.isValid())
        map.insert(place.first(), child);
    else
        map.remove(place.first());
    return map;
}

} // namespace

QVariant applied(const QVariant &before, const QVariantList &changes)
{
    QVariant value = before;
    for (const QVariant &each : changes) {
        const QVariantMap change = each.toMap();
        const QString at = change.value(atKey).toString();
        value = changedAt(value, at.isEmpty() ? QStringList() : at.split(QLatin1Char('.')),
                          change.value(newKey));
    }
    return value;
}

QVariantList difference(const QVariant &before, const QVariant &after)
{
    QVariantList found;
    collect({}, before, after, &found);
    return found;
}

} // namespace welmo::controller
