#pragma once

#include <QByteArray>
#include <QVariantMap>
#include <QVector>

namespace welmo::book {

/// One value of a file that is not the same in another one, or was not before.
struct Difference
{
    QString key; ///< dotted
    QVariant before; ///< invalid where it is missing
    QVariant after;
};

/// The values of a file by their dotted keys; a list is one value.
QVariantMap flattened(const QVariant &content);
/// What differs, by key; the file's own name does not count.
QVector<Difference> differences(const QVariant &before, const QVariant &after);

/// Whether two values are the same as JSON, in which 12 is 12.0.
bool sameValues(const QVariant &a, const QVariant &b);

/// A content as it is kept and compared: JSON, the same bytes for the same values. Null for a
/// content that is no map: the file is not there.
QByteArray contentJson(const QVariant &content);
QVariant contentFromJson(const QByteArray &json);

} // namespace welmo::book
