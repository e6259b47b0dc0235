#pragma once

#include <vector>

#include "book/records/database.h"

namespace welmo::book {

/// The kind of an entry that a cell hands over.
namespace kind {
inline const QString seam = QStringLiteral("seam");
inline const QString alarm = QStringLiteral("alarm");
inline const QString state = QStringLiteral("state");
inline const QString change = QStringLiteral("change");
} // namespace kind

/// A table that keeps the entries of one kind as they come.
struct ListTable
{
    /// A value of an entry, and the column that keeps it.
    struct Value
    {
        const char *key;
        const char *column;
        const char *type;

        bool isNumber() const { return qstrcmp(type, "TEXT") != 0; }
    };
    QString kind; ///< and the table's name
    std::vector<Value> values;
};

const std::vector<ListTable> &listTables();

/// The tables of a plant's book; those for seams are a weld book's, so that a SeamBook can read
/// them.
const Schema &plantSchema();

constexpr qint64 hourMs = 3600LL * 1000; ///< for which a row of the table "seamsum" counts

} // namespace welmo::book
