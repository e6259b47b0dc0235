#pragma once

#include "book/records/seambook.h"

namespace welmo::book {

enum class ReportKind { Csv, Json, SeamPdf, DayPdf };

/// What is to be written.
struct ReportWish
{
    ReportKind kind = ReportKind::Csv;
    Filter filter; ///< of a table
    Seam seam; ///< of a page on one weld, or of the day that it began on
    QString folder; ///< made when missing; the file gets a name of its own
};

struct ReportFile
{
    QString name; ///< with its path
    QString problem; ///< a line when it was not written
};

/// Takes its time: not for the GUI thread.
ReportFile writeReport(SeamBook &book, const ReportWish &wish);

} // namespace welmo::book
