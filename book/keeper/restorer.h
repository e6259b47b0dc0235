#pragma once

#include <functional>

#include "book/keeper/cellwriter.h"
#include "book/records/bookthread.h"

namespace welmo::book {

/// Writes many values as one: before the first one the book keeps what was there, so that a restore
/// that a crash or a lost link cut off is taken back when there is a way to that controller again.
class Restorer : public QObject
{
    Q_OBJECT
public:
    /// Both are borrowed.
    Restorer(BookThread *keeping, CellWriter *cell, QObject *parent = nullptr);

    /// @p then hears why nothing was changed, or an empty line.
    void restore(const QString &cellName, const QString &title, const QVector<CellChange> &changes,
                 const std::function<void(const QString &problem)> &then);
    /// Takes back what was left half-done on this cell.
    void recover(const QString &cellName);

signals:
    /// A line about a restore that was taken back, or could not be.
    void recovered(const QString &line);

private:
    void forget();

    BookThread *m_keeping;
    CellWriter *m_cell;
};

} // namespace welmo::book
