#pragma once

#include <QObject>
#include <QTimer>

#include "kelp/moduleobject.h"

namespace kelp {

/// Keeps one tree and its JSON file together: loads at once, saves a moment after a change.
class TreeFile : public QObject
{
    Q_OBJECT
public:
    TreeFile(const QString &path, ModuleObject *tree);

    /// Fills the tree from the file. False with a line in @p error when there is a file that cannot
    /// be read; it is then never written, so that nothing in it is lost.
    bool load(QString *error);
    /// Starts following changes; call after load().
    void follow();
    /// Writes now if anything changed since the last write that succeeded.
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
