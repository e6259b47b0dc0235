#include "controller/json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cmath>

namespace controller {

namespace {

constexpr int maxDepth = 16;
constexpr int maxTextLength = 64 * 1024;

QVariant valueOf(const QJsonValue &json)
{
    if (json.isObject()) {
        QVariantMap map;
        const QJsonObject object = json.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            map.insert(map.cend(), it.key(), valueOf(it.value()));
        return map;
    }
    if (json.isArray()) {
        QVariantList list;
        for (const QJsonValue &item : json.toArray())
            list.append(valueOf(item));
        return list;
    }
    if (json.isNull())
        return {};
    const QVariant value = json.toVariant();
    const bool fits =
        value.userType() == QMetaType::LongLong && value.toInt() == value.toLongLong();
    return fits ? QVariant(value.toInt()) : value;
}

bool isPlainBelow(const QVariant &value, int depth);

template<typename Container>
bool allPlain(const Container &container, int depth)
{
    return depth < maxDepth
        && std::all_of(container.begin(), container.end(),
                       [depth](const QVariant &child) { return isPlainBelow(child, depth + 1); });
}

bool isPlainBelow(const QVariant &value, int depth)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return true;
    case QMetaType::Double:
    case QMetaType::Float:
        return std::isfinite(value.toDouble());
    case QMetaType::QString:
        return value.toString().size() <= maxTextLength;
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return allPlain(value.toList(), depth);
    case QMetaType::QVariantMap:
        return allPlain(value.toMap(), depth);
    default:
        return false;
    }
}

} // namespace

QByteArray toJson(const QVariant &value)
{
    // The brackets are there because a JSON text of this library is an array or an object.
    const QJsonArray wrapped{QJsonValue::fromVariant(value)};
    return QJsonDocument(wrapped).toJson(QJsonDocument::Compact);
}

std::optional<QVariant> fromJson(const QByteArray &json)
{
    const QJsonArray wrapped = QJsonDocument::fromJson(json).array();
    if (wrapped.size() != 1)
        return std::nullopt;
    return valueOf(wrapped.first());
}

bool isPlain(const QVariant &value)
{
    return isPlainBelow(value, 0);
}

} // namespace controller
