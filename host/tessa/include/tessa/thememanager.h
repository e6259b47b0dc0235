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

    /// Makes the resources under ":/<alias>/" known to getIcon().
    void addAlias(const QString &alias);

    /// The picture images/@p group/@p name.png of the theme or of a module's resources; a null icon
    /// when nobody has it.
    QIcon getIcon(const QString &group, const QString &name) const;

    /// Turns a rules file (a JSON array of objects: "name" is the selector, every other member a
    /// property with its value, which may hold theme tokens) into one style sheet, rules in the
    /// file's order, the properties of a rule in alphabetical order. A file that cannot be read
    /// gives an empty sheet, an unknown token an empty value, a rule without a selector nothing;
    /// all are told by problem(), once a file.
    QString genStyleSheet(const QString &path);

signals:
    void problem(const QString &line);

private:
    QString build(const QString &path);

    QStringList m_aliases;
    QHash<QString, QString> m_sheets;
};

} // namespace tessa
