#include "pendant/app/preferences.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

#include "kelp/jsonfile.h"
#include "pendant/app/options.h"
#include "pendant/theme/appearance.h"

namespace welmo::pendant {

namespace {

const QString languageKey = QStringLiteral("language");
const QString themeKey = QStringLiteral("theme");
const QString jogKey = QStringLiteral("jog_percent");

QString oneOf(const QStringList &known, const QJsonValue &value)
{
    return known.contains(value.toString()) ? value.toString() : known.first();
}

} // namespace

Preferences::Preferences(const QString &dataFolder)
    : m_path(QDir(dataFolder).filePath(QStringLiteral("pendant.json")))
{
    if (!QFileInfo::exists(m_path))
        return;
    const QJsonObject kept = kelp::readJsonFile(m_path, &m_error).object();
    language = oneOf(knownLanguages(), kept.value(languageKey));
    theme = oneOf(knownThemes(), kept.value(themeKey));
    jogPercent = qBound(1, kept.value(jogKey).toInt(jogPercent), 100);
}

bool Preferences::save()
{
    if (!m_error.isEmpty())
        return false;
    const QJsonObject kept{{languageKey, language}, {themeKey, theme}, {jogKey, jogPercent}};
    return kelp::writeJsonFile(m_path, QJsonDocument(kept), &m_error);
}

} // namespace welmo::pendant
