#pragma once

#include <QCoreApplication>
#include <QVariantMap>

#include "book/keeper/cellbackup.h"
#include "schema/fileset.h"

namespace welmo::book {

/// What the keys and values of a parameter file are called.
class FieldWords
{
    Q_DECLARE_TR_FUNCTIONS(welmo::book::FieldWords)
public:
    /// "Arc start", "Welding"…
    static QString set(const schema::FileSet &set);
    /// Of a dotted key; the key itself where nobody knows it.
    static QString title(const QString &key);
    /// With its unit, as the rest of the file makes it; "–" for none.
    static QString value(const schema::FileSet &set, const QString &key, const QVariant &value,
                         const QVariant &content);
    /// "Current: 180 A → 200 A; …"
    static QString changes(const schema::FileSet &set, const QVariant &before,
                           const QVariant &after);
    /// Of a place that a backup holds, and what differs there.
    static QString place(const CellChange &change);
    static QString changes(const RestoreItem &item);
    /// The few values that tell one file from another.
    static QString mainValues(const schema::FileSet &set, const QVariant &content);
};

} // namespace welmo::book
