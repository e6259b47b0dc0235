#include "values.h"

#include <algorithm>

#include "kelp/moduleobject.h"

namespace kelp {

namespace {

bool isNumber(const QVariant &value)
{
    switch (static_cast<QMetaType::Type>(value.userType())) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

bool isListOfMaps(const QVariant &value)
{
    if (value.userType() != QMetaType::QVariantList)
        return false;
    const QVariantList list = value.toList();
    return !list.isEmpty() && std::all_of(list.begin(), list.end(), [](const QVariant &item) {
        return item.userType() == QMetaType::QVariantMap;
    });
}

bool sameMap(const QVariantMap &a, const QVariantMap &b)
{
    return std::equal(a.keyValueBegin(), a.keyValueEnd(), b.keyValueBegin(), b.keyValueEnd(),
                      [](const auto &left, const auto &right) {
                          return left.first == right.first && sameValue(left.second, right.second);
                      });
}

bool sameList(const QVariantList &a, const QVariantList &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameValue);
}

} // namespace

Entries entriesOf(const QVariant &variant)
{
    Entries entries;
    if (variant.userType() == QMetaType::QVariantMap) {
        const QVariantMap map = variant.toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            entries.append({it.key(), it.value()});
        return entries;
    }
    const QVariantList list = variant.toList();
    for (int i = 0; i < list.size(); ++i)
        entries.append({list.at(i).toMap().value(QStringLiteral("id"), i).toString(), list.at(i)});
    return entries;
}

bool hasEntries(const QVariant &variant)
{
    return variant.userType() == QMetaType::QVariantMap || isListOfMaps(variant);
}

bool sameValue(const QVariant &a, const QVariant &b)
{
    if (a.userType() != b.userType())
        return isNumber(a) && isNumber(b) && a.toDouble() == b.toDouble();
    switch (static_cast<QMetaType::Type>(a.userType())) {
    case QMetaType::QVariantMap:
        return sameMap(a.toMap(), b.toMap());
    case QMetaType::QVariantList:
        return sameList(a.toList(), b.toList());
    default:
        return a == b;
    }
}

} // namespace kelp
