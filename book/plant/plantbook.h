#pragma once

#include <QVariantMap>
#include <QVector>

#include "book/records/seambook.h"

namespace welmo::book {

/// The kind of an entry that a cell hands over.
namespace kind {
inline const QString seam = QStringLiteral("seam");
inline const QString alarm = QStringLiteral("alarm");
inline const QString state = QStringLiteral("state");
inline const QString change = QStringLiteral("change");
} // namespace kind

/// The tables of a plant's book; those for seams are a weld book's, so that a SeamBook can read
/// them.
const Schema &plantSchema();

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

    static std::unique_ptr<PlantBook> open(const QString &file, QString *problem);

    /// Stores the entries in one transaction; what one cell's log came to, for each that occurs.
    /// Empty on failure, when nothing changed, with errorText().
    std::optional<QVector<Taken>> take(const QVector<Entry> &entries);

    SeamBook &seams() { return m_book; }
    QString errorText() const { return m_book.errorText(); }

private:
    explicit PlantBook(std::unique_ptr<Database> database)
        : m_book(std::move(database))
    { }
    std::optional<Taken> begin(const Entry &entry);
    bool takeOne(const Entry &entry, Taken *taken);
    bool store(const Entry &entry, bool *known);
    bool storeSeam(const Entry &entry, bool *known);
    bool finish(const Taken &taken);
    Database &database() { return m_book.database(); }

    SeamBook m_book;
};

} // namespace welmo::book
