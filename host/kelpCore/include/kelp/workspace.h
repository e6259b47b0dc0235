#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <vector>

#include "kelp/moduleobject.h"
#include "kelp/translationmanager.h"

namespace kelp {

class TreeFile;

/// What one running host owns at the bottom: the application-wide tree, its saved parts, the
/// translations and the data folder. One at a time; a test makes its own and drops it.
class Workspace : public QObject
{
    Q_OBJECT
public:
    /// @p dataFolder is made when missing; a folder that cannot be written is told by problem().
    Workspace(const QString &dataFolder, const QString &language);
    ~Workspace() override;

    /// The running one, null between hosts.
    static Workspace *current();

    QString dataFolder() const { return m_dataFolder; }
    ModuleObject *root() { return &m_root; }
    TranslationManager *translations() { return &m_translations; }

    /// Binds the tree at the dotted path @p key: the saved tree where there is one, completed from
    /// the template where it lacks something. With @p persistent it is saved again, whole or not at
    /// all, shortly after a change and when the workspace ends. A saved tree that does not parse is
    /// reported, left as it is on disk, and the template stands in. Binding a key again changes
    /// nothing.
    ModuleObject *bindTree(const QString &key, const QString &templatePath, bool persistent);

    /// Saves what has changed now.
    void saveTrees();

    /// Hands one line about something that went wrong to problem().
    void report(const QString &line) { emit problem(line); }

signals:
    /// One line: what could not be read or written, and why.
    void problem(const QString &line);

private:
    QString m_dataFolder;
    ModuleObject m_root{QString()};
    TranslationManager m_translations;
    QStringList m_bound;
    std::vector<std::unique_ptr<TreeFile>> m_files;
};

} // namespace kelp
