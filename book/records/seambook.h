#pragma once

#include <QVector>
#include <optional>

#include "book/records/course.h"
#include "book/records/database.h"
#include "book/records/limits.h"
#include "book/records/seam.h"

namespace welmo::book {

/// Which records; what is empty or not set does not matter.
struct Filter
{
    qint64 from = 0; ///< ms UTC, first moment of the start
    qint64 until = 0; ///< first moment after it; 0: open
    QString program;
    QString file; ///< the welding file
    std::optional<Verdict> verdict;
    bool realOnly = false;
};

/// The records, courses and limits in a book. Every operation that answers false leaves the book as
/// it was, with a line in errorText().
class SeamBook
{
public:
    explicit SeamBook(std::unique_ptr<Database> database)
        : m_database(std::move(database))
    { }

    /// Puts an open record in and gives it its number; on the disk when this answers.
    bool begin(Seam *seam);
    bool append(qint64 seam, const Samples &more);
    /// Closes the record with what is in @p seam; its course becomes one piece.
    bool finish(const Seam &seam);
    /// Closes what an earlier run left open as interrupted, from the course as far as it got.
    /// Answers how many; -1 when that failed.
    int closeInterrupted();

    /// Newest first.
    QVector<Seam> list(const Filter &filter, int limit = 200, int offset = 0);
    int count(const Filter &filter);
    std::optional<Seam> seam(qint64 id);
    Course course(qint64 seam);
    /// The programs, or welding files, that there are records of.
    QStringList programs();
    QStringList files();

    Limits limits(const QString &file);
    QVector<Limits> allLimits();
    /// Limits without any band are taken out.
    bool setLimits(const Limits &limits);

    /// Courses of seams that began before @p olderThan, and the oldest ones while the book is
    /// larger than @p bytes, keep one sample a second. Does at most @p most; answers how many.
    int thin(qint64 olderThan, qint64 bytes, int most = 100);

    /// A word that the book keeps for its user.
    QString setting(const QString &name);
    bool setSetting(const QString &name, const QString &value);

    Database &database() { return *m_database; }
    QString errorText() const { return m_database->errorText(); }

private:
    QVector<Seam> read(QSqlQuery &query);
    Samples samples(qint64 seam, int *parts = nullptr);
    bool store(const Seam &seam);
    bool replaceCourse(qint64 seam, const Samples &samples, int rate);
    QStringList distinct(const QString &column);

    std::unique_ptr<Database> m_database;
};

} // namespace welmo::book
