#pragma once

#include <QString>
#include <QTextStream>
#include <vector>

#include "bench/measure.h"

namespace bench {

struct Row
{
    QString what;
    QString floor; ///< what it is compared with
    QString unit;
    Comparison figures;
};

/// The figures of a run as a table, for a terminal or for the docs.
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
