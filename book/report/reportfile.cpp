#include "book/report/reportfile.h"

#include <QDateTime>
#include <QDir>
#include <QSaveFile>

#include "book/report/pdf.h"
#include "book/report/tables.h"

namespace welmo::book {

namespace {

QString nameOf(const ReportWish &wish)
{
    switch (wish.kind) {
    case ReportKind::SeamPdf:
        return QStringLiteral("weld-%1.pdf").arg(wish.seam.id);
    case ReportKind::DayPdf:
        return QStringLiteral("welds-%1.pdf")
            .arg(wish.seam.startedAt().toString(QStringLiteral("yyyyMMdd")));
    case ReportKind::Csv:
    case ReportKind::Json:
        break;
    }
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    return QStringLiteral("welds-%1.%2")
        .arg(now, wish.kind == ReportKind::Csv ? QStringLiteral("csv") : QStringLiteral("json"));
}

bool writeTableFile(SeamBook &book, const ReportWish &wish, ReportFile *file)
{
    QSaveFile out(file->name);
    const auto format = wish.kind == ReportKind::Csv ? TableFormat::Csv : TableFormat::Json;
    const bool written = out.open(QIODevice::WriteOnly)
        && writeTable(book, wish.filter, format, &out, &file->problem) && out.commit();
    if (!written && file->problem.isEmpty())
        file->problem = out.errorString();
    return written;
}

bool writeDay(SeamBook &book, const ReportWish &wish, ReportFile *file)
{
    const QDate day = QDateTime::fromMSecsSinceEpoch(wish.seam.started).date();
    Filter filter;
    filter.from = day.startOfDay().toMSecsSinceEpoch();
    filter.until = day.addDays(1).startOfDay().toMSecsSinceEpoch();
    return writeDayPdf(file->name, day, book.list(filter, -1), &file->problem);
}

} // namespace

ReportFile writeReport(SeamBook &book, const ReportWish &wish)
{
    QDir().mkpath(wish.folder);
    ReportFile file{QDir(wish.folder).filePath(nameOf(wish)), {}};
    if (wish.kind == ReportKind::SeamPdf)
        writeSeamPdf(file.name, wish.seam, book.course(wish.seam.id),
                     book.limits(wish.seam.weldFile), &file.problem);
    else if (wish.kind == ReportKind::DayPdf)
        writeDay(book, wish, &file);
    else
        writeTableFile(book, wish, &file);
    return file;
}

} // namespace welmo::book
