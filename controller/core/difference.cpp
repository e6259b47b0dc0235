#include "controller/core/difference.h"

#include <algorithm>

namespace welmo::controller {

namespace {

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
    QVariantMap change{{QStringLiteral("at"), place}};
    if (before.isValid())
        change.insert(QStringLiteral("old"), before);
    if (after.isValid())
        change.insert(QStringLiteral("new"), after);
    found->append(change);
}

} // namespace

QVariantList difference(const QVariant &before, const QVariant &after)
{
    QVariantList found;
    collect({}, before, after, &found);
    return found;
}

} // namespace welmo::controller
