#pragma once

#include <QVariant>
#include <functional>
#include <vector>

#include "book/records/seam.h"

namespace welmo::book {

/// One value of a record: the same row makes the table's column, a report's and the heading of
/// both.
struct Column
{
    QString name;
    QString unit; ///< empty for words and counts
    QString type; ///< in SQL
    std::function<QVariant(const Seam &)> get; ///< null where nothing was told
    std::function<void(Seam &, const QVariant &)> set;
};

/// Every value of a record besides its number, in the order of the reports.
const std::vector<Column> &seamColumns();

} // namespace welmo::book
