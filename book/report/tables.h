#pragma once

#include <QString>

#include "book/records/seambook.h"

class QIODevice;

namespace welmo::book {

/// A record's value in reports; docs/weldbook.md describes every column.
struct ReportValue
{
    QString name;
    QString unit; ///< empty for words and counts
    QVariant value; ///< null if unknown
};

/// Number and times in ISO 8601 with their zone, then every value of the record.
QVector<ReportValue> reportValues(const Seam &seam);
/// The controller's alarm, in the language in use; empty if there was none.
QString alarmText(const Seam &seam);
/// "none", "green", "amber" or "red".
QString verdictWord(Verdict verdict);

enum class TableFormat { Csv, Json };

/// Writes every record that matches the filter, newest first, without holding all in memory; JSON
/// includes the courses. On failure false, with a line in @p problem.
bool writeTable(SeamBook &book, const Filter &filter, TableFormat format, QIODevice *out,
                QString *problem);

} // namespace welmo::book
