#include "controller/core/fields.h"

#include <algorithm>
#include <cmath>

namespace welmo::controller {

namespace {

bool isNumber(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

Reply wrongType(const Field &field, QLatin1String wanted)
{
    return Reply::refused(BadPayload,
                          QStringLiteral("%1 is not %2").arg(QLatin1String(field.key), wanted));
}

Reply checkedNumber(const Field &field, const QVariant &value)
{
    const double number = value.toDouble();
    const bool whole = field.type != Field::Type::Number;
    if (!isNumber(value) || (whole && std::trunc(number) != number))
        return wrongType(field,
                         whole ? QLatin1String("a whole number") : QLatin1String("a number"));
    if (number < field.lowest || number > field.highest) {
        return Reply::refused(OutOfRange,
                              QStringLiteral("%1: %2 is not within %3 to %4")
                                  .arg(QLatin1String(field.key))
                                  .arg(number)
                                  .arg(field.lowest)
                                  .arg(field.highest));
    }
    return Reply::with(whole ? QVariant(static_cast<int>(number)) : value);
}

Reply checkedThree(const Field &field, const QVariant &value)
{
    QVariantList list = value.toList();
    if (list.size() != 3)
        return wrongType(field, QLatin1String("a list of three whole numbers"));
    for (QVariant &item : list) {
        Reply reply = checkedNumber(field, item);
        if (!reply.ok())
            return reply;
        item = reply.value;
    }
    return Reply::with(list);
}

Reply checkedValue(const Field &field, const QVariant &value)
{
    switch (field.type) {
    case Field::Type::Text:
        return value.userType() == QMetaType::QString ? Reply::with(value)
                                                      : wrongType(field, QLatin1String("a text"));
    case Field::Type::Boolean:
        return value.userType() == QMetaType::Bool
            ? Reply::with(value)
            : wrongType(field, QLatin1String("true or false"));
    case Field::Type::Number:
    case Field::Type::Integer:
        return checkedNumber(field, value);
    case Field::Type::ThreeIntegers:
        return checkedThree(field, value);
    }
    return {};
}

// True if a node on the path to the child is not a map.
bool isBlocked(const QVariantMap &map, const QString &path)
{
    const QVariant parent = childAt(map, path.section(QLatin1Char('.'), 0, -2));
    return path.contains(QLatin1Char('.')) && parent.isValid()
        && parent.userType() != QMetaType::QVariantMap;
}

} // namespace

Field text(const char *key)
{
    return {key, Field::Type::Text};
}

Field boolean(const char *key)
{
    return {key, Field::Type::Boolean};
}

Field number(const char *key, double lowest, double highest)
{
    return {key, Field::Type::Number, lowest, highest};
}

Field integer(const char *key, int lowest, int highest)
{
    return {key, Field::Type::Integer, double(lowest), double(highest)};
}

Field threeIntegers(const char *key, int lowest, int highest)
{
    return {key, Field::Type::ThreeIntegers, double(lowest), double(highest)};
}

Reply checked(const QVariant &payload, const Fields &fields, Missing missing)
{
    if (payload.userType() != QMetaType::QVariantMap)
        return Reply::refused(BadPayload, QStringLiteral("the payload has no children"));
    QVariantMap map = payload.toMap();
    for (const Field &field : fields) {
        const QString key = QString::fromLatin1(field.key);
        const QVariant value = childAt(map, key);
        if (isBlocked(map, key) || (!value.isValid() && missing == Missing::Refused))
            return Reply::refused(BadPayload, key + QStringLiteral(" is missing"));
        if (!value.isValid())
            continue;
        Reply reply = checkedValue(field, value);
        if (!reply.ok())
            return reply;
        map = withChild(map, key, reply.value);
    }
    return Reply::with(map);
}

QVariantMap withChild(const QVariantMap &map, const QString &path, const QVariant &value)
{
    QVariantMap result = map;
    const QString first = path.section(QLatin1Char('.'), 0, 0);
    const QString rest = path.section(QLatin1Char('.'), 1);
    result[first] = rest.isEmpty() ? value : withChild(map.value(first).toMap(), rest, value);
    return result;
}

} // namespace welmo::controller
