#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <vector>

#include "kelp/moduleobject.h"
#include "kelp/translationmanager.h"

namespace kelp {

class TreeFile;

/// The base of one running host: the application-wide tree, its saved parts, the translations and
/// the data folder. Only one exists at a time; each test makes its own.
class Workspace : public QObject
{
    Q_OBJECT
public:
    /// @p dataFolder is made if missing; problem() reports a folder that cannot be written.
    Workspace(const QString &dataFolder, const QString &language);
    ~Workspace() override;

    /// The running host's workspace; null between hosts.
    static Workspace *current();

    QString dataFolder() const { return m_dataFolder; }
    ModuleObject *root() { return &m_root; }
    TranslationManager *translations() { return &m_translations; }

    /// Binds the tree at the dotted path @p key: the saved tree if there is one, with what it lacks
    /// added from the template. With @p persistent it is saved, completely or not at all, shortly
    /// after a change and when the workspace ends. A saved tree that does not parse is reported and
    /// left on disk, and the template is used. Binding a key again changes nothing.
    ModuleObject *bindTree(const QString &key, const QString &templatePath, bool persistent);

    /// Saves changes immediately.
    void saveTrees();

    /// Emits problem() with one line.
    void report(const QString &line) { emit problem(line); }

signals:
    /// What could not be read or written, and why, in one line.
    void problem(const QString &line);

private:
    QString m_dataFolder;
    ModuleObject m_root{QString()};
    TranslationManager m_translations;
    QStringList m_bound;
    std::vector<std::unique_ptr<TreeFile>> m_files;
};

} // namespace kelp
