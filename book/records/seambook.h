#pragma once

#include <QVector>
#include <optional>

#include "book/records/course.h"
#include "book/records/database.h"
#include "book/records/limits.h"
#include "book/records/seam.h"

namespace welmo::book {

/// Which records to list; an empty or unset member matches all.
struct Filter
{
    qint64 from = 0; ///< ms UTC, the earliest start
    qint64 until = 0; ///< ms UTC, before which the seam started; 0: no limit
    QString cell;
    QString program;
    QString file; ///< the welding file
    std::optional<Verdict> verdict;
    bool realOnly = false;
};

/// The records, courses and limits in a book. An operation that returns false has changed nothing,
/// and set errorText().
class SeamBook
{
public:
    explicit SeamBook(std::unique_ptr<Database> database)
        : m_database(std::move(database))
    { }

    /// Inserts an open record and sets its number; it is on the disk on return.
    bool begin(Seam *seam);
    bool append(qint64 seam, const Samples &more);
    /// Closes the record with the values of @p seam, and joins its course into one piece.
    bool finish(const Seam &seam);
    /// Closes the records that an earlier run left open as interrupted, with the course as far as
    /// it was stored. Returns their number; -1 on failure.
    int closeInterrupted();

    /// Newest first.
    QVector<Seam> list(const Filter &filter, int limit = 200, int offset = 0);
    int count(const Filter &filter);
    std::optional<Seam> seam(qint64 id);
    Course course(qint64 seam);
    /// All programs, or welding files, that occur in records.
    QStringList programs();
    QStringList files();

    Limits limits(const QString &file);
    QVector<Limits> allLimits();
    /// Limits without any band are removed.
    bool setLimits(const Limits &limits);

    static constexpr qint64 anySize = -1;
    /// Reduces courses to one sample a second: those of seams that began before @p olderThan, and
    /// the oldest ones while the file is larger than @p bytes, which no server tells. Does at most
    /// @p most; returns the number.
    int thin(qint64 olderThan, qint64 bytes, int most = 100);

    /// A named text that the book stores for its user.
    QString setting(const QString &name);
    bool setSetting(const QString &name, const QString &value);

    Database &database() { return *m_database; }
    QString errorText() const { return m_database->errorText(); }

private:
    QVector<Seam> read(QSqlQuery &query);
    Samples samples(qint64 seam, int *parts = nullptr);
    bool store(const Seam &seam);
    bool replaceCourse(qint64 seam, const Samples &samples);
    bool thinOne(qint64 seam);
    qint64 usedBytes();
    QStringList distinct(const QString &column);

    std::unique_ptr<Database> m_database;
};

} // namespace welmo::book
