#include "controller/json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cmath>
#include <limits>

namespace controller {

namespace {

constexpr int maxDepth = 16;
constexpr int maxTextLength = 64 * 1024;

QVariant narrowed(const QVariant &value)
{
    if (value.userType() == QMetaType::Nullptr)
        return {};
    if (value.userType() == QMetaType::LongLong) {
        const qlonglong number = value.toLongLong();
        const bool fits =
            number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
        return fits ? QVariant(static_cast<int>(number)) : value;
    }
    if (value.userType() == QMetaType::QVariantList) {
        QVariantList list = value.toList();
        std::transform(list.begin(), list.end(), list.begin(), narrowed);
        return list;
    }
    if (value.userType() == QMetaType::QVariantMap) {
        QVariantMap map = value.toMap();
        std::transform(map.begin(), map.end(), map.begin(), narrowed);
        return map;
    }
    return value;
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
    return narrowed(wrapped.first().toVariant());
}

bool isPlain(const QVariant &value)
{
    return isPlainBelow(value, 0);
}

} // namespace controller
