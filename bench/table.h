#pragma once

#include <QString>
#include <QTextStream>
#include <vector>

#include "bench/measure.h"

namespace bench {

/// The unit of rows that count; their figures are shown in thousands.
inline const QString countUnit = QStringLiteral("1,000 instructions");

struct Row
{
    QString what;
    QString floor; ///< what it is compared with
    QString unit;
    Comparison figures;
};

/// The figures of a run as a table, for a terminal or for the docs. Counts are also given as a time
/// on a pendant's core: ARM Cortex-A53, in order, 1.2 GHz, of which 0.7 instructions a cycle are
/// assumed for code that paints and allocates.
class Table
{
public:
    enum class Form { Text, Markdown };

    void add(const Row &row) { m_rows.push_back(row); }
    void print(QTextStream &out, Form form) const;

private:
    std::vector<Row> m_rows{};
};

} // namespace bench
