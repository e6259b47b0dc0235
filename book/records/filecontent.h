#pragma once

#include <QByteArray>
#include <QVariantMap>
#include <QVector>

namespace welmo::book {

/// One value that differs between two contents of a file.
struct Difference
{
    QString key; ///< dotted
    QVariant before; ///< invalid if it is missing
    QVariant after;
};

/// A file's values by their dotted keys; a list counts as one value.
QVariantMap flattened(const QVariant &content);
/// All differences, by key; the file's own name is ignored.
QVector<Difference> differences(const QVariant &before, const QVariant &after);

/// Whether two values are equal as JSON, in which 12 equals 12.0.
bool sameValues(const QVariant &a, const QVariant &b);

/// The content as JSON for storing and comparing: equal values give equal bytes. Null if the
/// content is no map, that is if the file does not exist.
QByteArray contentJson(const QVariant &content);
QVariant contentFromJson(const QByteArray &json);

} // namespace welmo::book
