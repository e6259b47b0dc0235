#pragma once

#include "bench/table.h"

namespace bench {

/// What a theme hands its rows to: decides which are run, runs them and keeps the figures.
class Bench
{
public:
    /// @p quick: each row only shows that it runs. @p filter: rows whose name holds this text.
    Bench(bool quick, const QString &filter);

    /// Nothing that is needed for the rows alone has to be made when none of them is wanted.
    bool wants(const QString &what) const { return what.contains(m_filter, Qt::CaseInsensitive); }
    /// Times in microseconds.
    void row(const QString &what, const QString &floor, const Trial &ours, const Trial &floorTrial);
    /// Windows of @p seconds each, or other trials of which a few must do.
    void fewTrials(const QString &what, const QString &floor, const QString &unit,
                   const Trial &ours, const Trial &floorTrial);
    bool isQuick() const { return m_quick; }
    const Table &table() const { return m_table; }

private:
    void run(const Row &row, const Trial &ours, const Trial &floor, const Effort &effort);

    bool m_quick;
    QString m_filter;
    Table m_table;
};

// The themes, each in the file of its name.
void forms(Bench &bench);
void pages(Bench &bench);
void text(Bench &bench);
void store(Bench &bench);
void pendant(Bench &bench);

} // namespace bench
