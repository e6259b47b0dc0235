#pragma once

#include <QObject>

#include "book/keeper/cellwriter.h"
#include "book/keeper/filewatch.h"
#include "schema/release.h"

namespace welmo::book {

/// How far operators may trim each file. A controller that can keeps and enforces this itself; for
/// any other one the book keeps it, and tells afterwards what went beyond.
class Releases : public QObject
{
    Q_OBJECT
public:
    /// All must outlive this.
    Releases(BookThread *keeping, CellWriter *cell, const FileWatch *files,
             QObject *parent = nullptr);

    /// Follows the controller; called each time the link has come up.
    void listen(bool enforced);
    /// Whether the controller refuses what goes beyond.
    bool isEnforced() const { return m_enforced; }
    /// What the controller enforces, by the file's name; empty if it does not.
    const QVariantMap &enforced() const { return m_theirs; }
    /// Of a file that is not released it does not exist.
    schema::Release of(const QString &file) const;
    /// Sets the release, or takes it away if it does not exist. False, with a line in @p problem,
    /// if the controller refuses.
    bool set(const QString &file, const schema::Release &release, QString *problem);

signals:
    void changed();
    /// One line: a change that the controller should not have let pass.
    void breached(const QString &line);
    /// One line: what could not be stored.
    void failed(const QString &line);

private:
    void load();
    void take(const QString &file, const QVariant &content);
    void check(const QString &file, const QVariant &before, const QVariant &after);
    void keep();

    BookThread *m_keeping;
    CellWriter *m_cell;
    QVariantMap m_theirs; // as the controller keeps them
    QVariantMap m_own; // for controllers that keep none
    bool m_enforced = false;
};

} // namespace welmo::book
