#include "schema/release.h"

#include <cmath>

#include "schema/values.h"

namespace welmo::schema {

namespace {

const QString contentKey = QStringLiteral("content");
const QString userKey = QStringLiteral("user");
const QString timeKey = QStringLiteral("time");
const QString nameKey = QStringLiteral("name");

constexpr double slack = 1e-6; // of a number that was computed from a percentage

const QStringList &allTrimmedKeys()
{
    static const QStringList keys{QStringLiteral("current"), QStringLiteral("voltage"),
                                  QStringLiteral("weld_speed")};
    return keys;
}

/// Every key of the set but the name, with the value that a missing one stands for.
QMap<QString, QVariant> defaultsByKey(const Set &set)
{
    QMap<QString, QVariant> all;
    for (const Row *row : set.rows()) {
        all.insert(QString::fromLatin1(row->key), row->defaultValue());
        if (row->twinKey())
            all.insert(QString::fromLatin1(row->twinKey()), row->defaultValue());
    }
    all.remove(nameKey);
    return all;
}

bool isWithin(double value, const Range &range)
{
    return value >= range.minimum - slack && value <= range.maximum + slack;
}

double rounded(double value)
{
    return std::round(value * 100) / 100;
}

} // namespace

Release Release::from(const QVariant &map)
{
    const QVariantMap all = map.toMap();
    Release release{all.value(contentKey).toMap(),
                    {},
                    all.value(userKey).toString(),
                    all.value(timeKey).toString()};
    for (const QString &key : allTrimmedKeys()) {
        if (all.contains(key))
            release.percent.insert(key, all.value(key).toDouble());
    }
    return release;
}

QVariantMap Release::toMap() const
{
    QVariantMap map{{userKey, user}, {timeKey, time}};
    if (exists())
        map.insert(contentKey, content);
    for (auto it = percent.begin(); it != percent.end(); ++it)
        map.insert(it.key(), *it);
    return map;
}

QStringList trimmedKeys(const Set &set)
{
    const QMap<QString, QVariant> all = defaultsByKey(set);
    QStringList keys;
    for (const QString &key : allTrimmedKeys()) {
        if (all.contains(key))
            keys.append(key);
    }
    return keys;
}

QVariant valueIn(const Set &set, const QVariant &file, const QString &key)
{
    const QVariant value = childAt(file, key);
    return value.isValid() ? value : defaultsByKey(set).value(key);
}

Range allowedBy(const Set &set, const Release &release, const QString &key)
{
    const double middle = valueIn(set, release.content, key).toDouble();
    const double part = std::abs(middle) * release.percent.value(key) / 100;
    return {middle - part, middle + part};
}

QString Breach::reason() const
{
    return QStringLiteral("trim_") + (allowed ? key : QStringLiteral("locked"));
}

QVariantList Breach::arguments(const QString &file) const
{
    if (!allowed)
        return {file, key};
    return {file, value, rounded(allowed->minimum), rounded(allowed->maximum)};
}

std::optional<Breach> breachOf(const Set &set, const Release &release, const QVariant &stored,
                               const QVariant &wanted)
{
    const QStringList trimmed = trimmedKeys(set);
    const auto defaults = defaultsByKey(set);
    for (auto it = defaults.keyBegin(); it != defaults.keyEnd(); ++it) {
        const QString &key = *it;
        const QVariant value = valueIn(set, wanted, key);
        if (value == valueIn(set, stored, key) || value == valueIn(set, release.content, key))
            continue;
        if (!trimmed.contains(key))
            return Breach{key, value, {}};
        const Range allowed = allowedBy(set, release, key);
        if (!isWithin(value.toDouble(), allowed))
            return Breach{key, value, allowed};
    }
    return {};
}

} // namespace welmo::schema
