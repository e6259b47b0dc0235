#pragma once

#include <QVariant>

namespace welmo::schema {

/// The value at the dotted @p path in nested maps; invalid if there is none.
QVariant childAt(const QVariant &map, const QString &path);

} // namespace welmo::schema
