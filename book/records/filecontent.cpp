#include "book/records/filecontent.h"

#include <QJsonDocument>

namespace welmo::book {

namespace {

const QString nameKey = QStringLiteral("name");

void flatten(const QString &prefix, const QVariantMap &map, QVariantMap *all)
{
    for (auto it = map.begin(); it != map.end(); ++it) {
        if (it->userType() == QMetaType::QVariantMap)
            flatten(prefix + it.key() + QLatin1Char('.'), it->toMap(), all);
        else
            all->insert(prefix + it.key(), *it);
    }
}

} // namespace

bool sameValues(const QVariant &a, const QVariant &b)
{
    const auto json = [](const QVariant &value) { return contentJson(QVariantMap{{{}, value}}); };
    return a.isValid() == b.isValid() && (a == b || json(a) == json(b));
}

QVariantMap flattened(const QVariant &content)
{
    QVariantMap all;
    flatten({}, content.toMap(), &all);
    return all;
}

QVector<Difference> differences(const QVariant &before, const QVariant &after)
{
    const QVariantMap old = flattened(before);
    const QVariantMap now = flattened(after);
    QVector<Difference> found;
    QVariantMap keys = old;
    keys.insert(now);
    keys.remove(nameKey);
    for (auto it = keys.begin(); it != keys.end(); ++it) {
        const Difference one{it.key(), old.value(it.key()), now.value(it.key())};
        if (!sameValues(one.before, one.after))
            found.append(one);
    }
    return found;
}

QByteArray contentJson(const QVariant &content)
{
    return content.userType() == QMetaType::QVariantMap
        ? QJsonDocument::fromVariant(content).toJson(QJsonDocument::Compact)
        : QByteArray();
}

QVariant contentFromJson(const QByteArray &json)
{
    return json.isEmpty() ? QVariant() : QJsonDocument::fromJson(json).toVariant();
}

} // namespace welmo::book
