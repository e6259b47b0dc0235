#pragma once

#include "bench/table.h"

namespace bench {

/// Runs the rows of the themes that are wanted, and keeps their figures.
class Bench
{
public:
    /// @p quick runs each row only once; @p filter selects rows whose name contains it.
    Bench(bool quick, const QString &filter);

    /// Whether a row is wanted; if not, what only it needs is not made.
    bool wants(const QString &what) const { return what.contains(m_filter, Qt::CaseInsensitive); }
    /// Trials by cost(): times in microseconds, or counts of instructions.
    void row(const QString &what, const QString &floor, const Trial &ours, const Trial &floorTrial);
    /// Measures in windows of @p seconds each, or by other trials of which few must do; left out
    /// where instructions are counted.
    void fewTrials(const QString &what, const QString &floor, const QString &unit,
                   const Trial &ours, const Trial &floorTrial);
    bool isQuick() const { return m_quick; }
    /// True if the row cannot be counted, which is told at the end.
    bool leavesOut(const QString &what);
    QStringList leftOut() const { return m_leftOut; }
    const Table &table() const { return m_table; }

private:
    void run(const Row &row, const Trial &ours, const Trial &floor, const Effort &effort);

    bool m_quick;
    QString m_filter;
    QStringList m_leftOut;
    Table m_table;
};

// The themes; each is in the file of its name.
void forms(Bench &bench);
void pages(Bench &bench);
void text(Bench &bench);
void store(Bench &bench);
void pendant(Bench &bench);
void book(Bench &bench);

} // namespace bench
