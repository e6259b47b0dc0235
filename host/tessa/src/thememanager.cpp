#include "tessa/thememanager.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include "kelp/jsonfile.h"
#include "vu/xtheme.h"

namespace tessa {

namespace {

const QString selectorKey = QStringLiteral("name");

QString ruleText(const QJsonObject &rule, QStringList *unknown)
{
    const QString selector = rule.value(selectorKey).toString();
    if (selector.isEmpty())
        return {};
    QString body;
    for (auto it = rule.begin(); it != rule.end(); ++it) {
        if (it.key() == selectorKey)
            continue;
        const QString value =
            vu::xtheme::current().resolve(it.value().toVariant().toString(), unknown);
        body += QStringLiteral("  %1: %2;\n").arg(it.key(), value);
    }
    return QStringLiteral("%1 {\n%2}\n").arg(selector, body);
}

} // namespace

ThemeManager::ThemeManager(QObject *parent)
    : QObject(parent)
    , m_aliases(QStringLiteral("tessa/theme"))
{ }

void ThemeManager::addAlias(const QString &alias)
{
    if (!m_aliases.contains(alias))
        m_aliases.append(alias);
}

QIcon ThemeManager::getIcon(const QString &group, const QString &name) const
{
    for (const QString &alias : m_aliases) {
        const QString path = QStringLiteral(":/%1/images/%2/%3.png").arg(alias, group, name);
        if (QFile::exists(path))
            return QIcon(path);
    }
    return {};
}

QString ThemeManager::genStyleSheet(const QString &path)
{
    if (!m_sheets.contains(path))
        m_sheets.insert(path, build(path));
    return m_sheets.value(path);
}

QString ThemeManager::build(const QString &path)
{
    QString error;
    const QJsonDocument document = kelp::readJsonFile(path, &error);
    if (!document.isArray()) {
        emit problem(error.isEmpty() ? tr("%1: is not a list of style rules").arg(path) : error);
        return {};
    }
    QString sheet;
    QStringList unknown;
    const QJsonArray rules = document.array();
    for (int i = 0; i < rules.size(); ++i) {
        const QString text = ruleText(rules.at(i).toObject(), &unknown);
        if (text.isEmpty())
            emit problem(tr("%1: rule %2 has no selector").arg(path).arg(i + 1));
        sheet += text;
    }
    unknown.removeDuplicates();
    if (!unknown.isEmpty())
        emit problem(
            tr("%1: unknown theme tokens: %2").arg(path, unknown.join(QLatin1String(", "))));
    return sheet;
}

} // namespace tessa
