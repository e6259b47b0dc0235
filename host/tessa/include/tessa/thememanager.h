#pragma once

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QStringList>

namespace tessa {

/// Icons and style sheets in the theme in use.
class ThemeManager : public QObject
{
    Q_OBJECT
public:
    explicit ThemeManager(QObject *parent = nullptr);

    /// Lets getIcon() use the resources under ":/<alias>/".
    void addAlias(const QString &alias);

    /// The picture images/@p group/@p name.png of the theme or of a module's resources; a null icon
    /// if none has it.
    QIcon getIcon(const QString &group, const QString &name) const;

    /// Makes one style sheet of a rules file: a JSON array of objects whose "name" is the selector
    /// and whose other members are properties; their values may contain theme tokens. The rules
    /// stay in the file's order, a rule's properties are in alphabetical order. A file that cannot
    /// be read gives an empty sheet, an unknown token an empty value, and a rule without a selector
    /// is left out; problem() reports each, once for each file.
    QString genStyleSheet(const QString &path);

signals:
    void problem(const QString &line);

private:
    QString build(const QString &path);

    QStringList m_aliases;
    QHash<QString, QString> m_sheets;
};

} // namespace tessa
