#pragma once

#include <functional>

#include "book/keeper/cellwriter.h"
#include "book/records/bookthread.h"

namespace welmo::book {

/// Writes many values as one step. The book first stores the old values, so that a restore that was
/// cut off by a crash or a lost link is undone when the link to that controller is up again.
class Restorer : public QObject
{
    Q_OBJECT
public:
    /// Both must outlive this.
    Restorer(BookThread *keeping, CellWriter *cell, QObject *parent = nullptr);

    /// Calls @p then with the reason why nothing was changed, or with an empty line.
    void restore(const QString &cellName, const QString &title, const QVector<CellChange> &changes,
                 const std::function<void(const QString &problem)> &then);
    /// Undoes a restore that was cut off on this cell.
    void recover(const QString &cellName);

signals:
    /// One line about a restore that was undone, or could not be.
    void recovered(const QString &line);

private:
    void forget();

    BookThread *m_keeping;
    CellWriter *m_cell;
};

} // namespace welmo::book
