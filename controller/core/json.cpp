#include "controller/core/json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QVector>
#include <algorithm>
#include <cctype>
#include <cmath>

namespace welmo::controller {

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
        for (const auto &item : json.toArray())
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

// The position after the JSON string that starts at @p start with its quote.
int textEnd(const QByteArray &json, int start)
{
    int i = start + 1;
    while (i < json.size() && json.at(i) != '"')
        i += json.at(i) == '\\' ? 2 : 1;
    return std::min(i + 1, json.size());
}

bool isFollowedByColon(const QByteArray &json, int position)
{
    while (position < json.size() && std::isspace(static_cast<unsigned char>(json.at(position))))
        ++position;
    return position < json.size() && json.at(position) == ':';
}

// Decodes escapes, since the same key can be escaped in many ways.
QByteArray plainText(const QByteArray &text)
{
    if (!text.contains('\\'))
        return text;
    return '"' + QJsonDocument::fromJson('[' + text + ']').array().first().toString().toUtf8()
        + '"';
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
    // Put into an array, since the library only writes arrays and objects.
    const QJsonArray wrapped{QJsonValue::fromVariant(value)};
    return QJsonDocument(wrapped).toJson(QJsonDocument::Compact);
}

bool repeatsKey(const QByteArray &json)
{
    QVector<QSet<QByteArray>> objects;
    for (int i = 0; i < json.size(); ++i) {
        switch (json.at(i)) {
        case '{':
            objects.push_back({});
            break;
        case '}':
            if (!objects.isEmpty())
                objects.pop_back();
            break;
        case '"': {
            const int end = textEnd(json, i);
            if (!objects.isEmpty() && isFollowedByColon(json, end)) {
                const QByteArray key = plainText(json.mid(i, end - i));
                if (objects.last().contains(key))
                    return true;
                objects.last().insert(key);
            }
            i = end - 1;
        }
        }
    }
    return false;
}

int sizeOf(const QVariant &value)
{
    constexpr int number = 8; // an estimate for numbers and all other short values
    int size = 2;
    if (value.userType() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (auto child = map.begin(); child != map.end(); ++child)
            size += child.key().size() + 4 + sizeOf(*child);
        return size;
    }
    if (value.userType() == QMetaType::QVariantList) {
        for (const QVariant &item : value.toList())
            size += 1 + sizeOf(item);
        return size;
    }
    return value.userType() == QMetaType::QString ? size + value.toString().toUtf8().size()
                                                  : number;
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

} // namespace welmo::controller
