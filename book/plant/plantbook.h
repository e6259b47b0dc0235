#pragma once

#include <QVariantMap>
#include <QVector>

#include "book/plant/planttables.h"
#include "book/records/seambook.h"

namespace welmo::book {

/// One database for what all cells of a plant hand over. Each entry is told apart by its cell, that
/// cell's log and the sequence in it, and is stored once, however often it comes and however many
/// recorders share the database.
class PlantBook
{
public:
    struct Entry
    {
        QString cell;
        QString log;
        qint64 sequence = 0;
        qint64 after = 0; ///< the entry before it, which has to be stored already; 0: none
        qint64 dropped = 0; ///< entries that the cell lost
        QString kind;
        QVariantMap content;
    };
    /// How far a cell's log is stored now.
    struct Taken
    {
        QString cell;
        QString log;
        qint64 sequence = 0;
        int added = 0; ///< entries that were new
        int unknown = 0; ///< entries among these that are of no known kind, or damaged
        qint64 dropped = 0; ///< entries that the cell lost so far
        qint64 lost = 0; ///< those of them that were not known of before
        bool gap = false; ///< entries came that follow one that did not come
    };

    /// What a cell welded in one hour with one verdict; simulated seams count as well.
    struct Sum
    {
        QString cell;
        qint64 hour = 0; ///< ms UTC, its beginning
        Verdict verdict = Verdict::None;
        qint64 count = 0;
        double arcTime = 0; ///< s
        double wire = 0; ///< m, as far as it is known
        double gasTime = 0; ///< s, as far as it is known
    };
    struct Alarm
    {
        QString cell;
        qint64 time = 0; ///< ms UTC
        QString code;
        QVariantList arguments; ///< of the code's text
        QString program;
        int line = 0;
        QString file;
    };
    /// Somebody changed an entry of what a cell stores.
    struct Change
    {
        QString cell;
        qint64 time = 0; ///< ms UTC
        QString user;
        QString path;
        QString entry;
        qint64 revision = 0;
        QVariantList changes;
    };

    /// Null, with a line in @p problem, as Database::open().
    static std::unique_ptr<PlantBook> open(const Place &place, QString *problem,
                                           Database::Access access = Database::ReadWrite);

    /// Stores the entries in one transaction; what one cell's log came to, for each that occurs.
    /// Empty on failure, when nothing changed, with errorText().
    std::optional<QVector<Taken>> take(const QVector<Entry> &entries);

    /// What a sum is of; of all cells it has no cell, and of all hours none of these.
    enum class SumOf { CellAndHour, Cell, Hour };
    /// The sums of the hours that begin from @p from on, before @p until (ms UTC), of one cell or
    /// of all, in the order of hours, then cells.
    QVector<Sum> sums(qint64 from, qint64 until, const QString &cell = {},
                      SumOf of = SumOf::CellAndHour);
    /// At most @p most from @p from on, before @p until, of one cell or of all, newest first.
    QVector<Alarm> alarms(qint64 from, qint64 until, const QString &cell, int most);
    QVector<Change> changes(qint64 from, qint64 until, const QString &cell, int most);

    SeamBook &seams() { return m_book; }
    QString errorText() const { return m_book.errorText(); }

private:
    explicit PlantBook(std::unique_ptr<Database> database)
        : m_book(std::move(database))
    { }
    bool begin(Taken *taken);
    bool takeOne(const Entry &entry, Taken *taken);
    bool store(const Entry &entry, bool *known);
    bool storeSeam(const Entry &entry, bool *known);
    bool addToSum(const Seam &seam);
    bool finish(const Taken &taken);
    Database &database() { return m_book.database(); }

    SeamBook m_book;
};

} // namespace welmo::book
