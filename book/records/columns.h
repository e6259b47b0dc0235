#pragma once

#include <QVariant>
#include <functional>
#include <vector>

#include "book/records/seam.h"

namespace welmo::book {

/// One value of a record. The same row defines the table's column, the report's, and the headings
/// of both.
struct Column
{
    QString name;
    QString unit; ///< empty for words and counts
    QString type; ///< in SQL
    std::function<QVariant(const Seam &)> get; ///< a null value if it is unknown
    std::function<void(Seam &, const QVariant &)> set;
};

/// Every value of a record except its number, in the order of the reports.
const std::vector<Column> &seamColumns();

} // namespace welmo::book
