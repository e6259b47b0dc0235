#pragma once

#include "book/records/limits.h"

namespace welmo::book {

/// One seam on one page: its record and its course with the limits as bands. On failure false, with
/// a line in @p problem. Needs a QGuiApplication.
bool writeSeamPdf(const QString &file, const Seam &seam, const Course &course, const Limits &limits,
                  QString *problem);
/// One day: the number of welds of each verdict, and a line for each weld.
bool writeDayPdf(const QString &file, const QDate &day, const QVector<Seam> &seams,
                 QString *problem);

} // namespace welmo::book
