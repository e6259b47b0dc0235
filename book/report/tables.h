#pragma once

#include <QString>

#include "book/records/seambook.h"

class QIODevice;

namespace welmo::book {

/// A record's value as reports tell it; docs/weldbook.md documents every column.
struct ReportValue
{
    QString name;
    QString unit; ///< empty for words and counts
    QVariant value; ///< null where nothing was told
};

/// Number, times in ISO 8601 with their zone, then every value of the record.
QVector<ReportValue> reportValues(const Seam &seam);
/// What the controller said, in the language in use; empty where it said nothing.
QString alarmText(const Seam &seam);
/// "none", "green", "amber" or "red".
QString verdictWord(Verdict verdict);

enum class TableFormat { Csv, Json };

/// Writes every record that the filter takes, newest first, without holding them all; JSON with the
/// courses. False with a line in @p problem.
bool writeTable(SeamBook &book, const Filter &filter, TableFormat format, QIODevice *out,
                QString *problem);

} // namespace welmo::book
