#pragma once

#include <QCoreApplication>
#include <QVariantMap>

#include "book/keeper/cellbackup.h"
#include "schema/fileset.h"

namespace welmo::book {

/// The names of a parameter file's keys and values.
class FieldWords
{
    Q_DECLARE_TR_FUNCTIONS(welmo::book::FieldWords)
public:
    /// "Arc start", "Welding"…
    static QString set(const schema::FileSet &set);
    /// The name of a dotted key; the key itself if it has no name.
    static QString title(const QString &key);
    /// The value with its unit, which may depend on other values of the file; "–" for none.
    static QString value(const schema::FileSet &set, const QString &key, const QVariant &value,
                         const QVariant &content);
    /// "Current: 180 A → 200 A; …"
    static QString changes(const schema::FileSet &set, const QVariant &before,
                           const QVariant &after);
    /// The name of a backup's entry, and what differs there.
    static QString place(const CellChange &change);
    static QString changes(const RestoreItem &item);
    /// The few values by which files are told apart.
    static QString mainValues(const schema::FileSet &set, const QVariant &content);
};

} // namespace welmo::book
