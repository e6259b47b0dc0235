#pragma once

#include "book/records/seambook.h"

namespace welmo::book {

enum class ReportKind { Csv, Json, SeamPdf, DayPdf };

/// What report to write.
struct ReportWish
{
    ReportKind kind = ReportKind::Csv;
    Filter filter; ///< of a table
    Seam seam; ///< the seam of a page, or one that began on the day
    QString folder; ///< made if missing; the file's name is generated
};

struct ReportFile
{
    QString name; ///< with its path
    QString problem; ///< one line if it was not written
};

/// Writes the report. It is slow: not for the GUI thread.
ReportFile writeReport(SeamBook &book, const ReportWish &wish);

} // namespace welmo::book
