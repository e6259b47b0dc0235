#pragma once

#include <QObject>
#include <QTimer>

#include "kelp/moduleobject.h"

namespace kelp {

/// Keeps a tree and its JSON file equal: loads at once, saves shortly after a change.
class TreeFile : public QObject
{
    Q_OBJECT
public:
    TreeFile(const QString &path, ModuleObject *tree);

    /// Fills the tree from the file. False, with a line in @p error, if the file exists but cannot
    /// be read; it is then never written, so that nothing in it is lost.
    bool load(QString *error);
    /// Starts to follow changes; call it after load().
    void follow();
    /// Writes now if anything changed since the last successful write.
    void flush();

signals:
    void failed(const QString &line);

private:
    QString m_path;
    ModuleObject *m_tree;
    QTimer m_delay;
    bool m_dirty = false;
    bool m_writable = true;
};

} // namespace kelp
