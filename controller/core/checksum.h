#pragma once

#include <QByteArray>

namespace welmo::controller {

/// The checksum of an entry as it is stored. It differs after any change of a single byte, and
/// after nearly every other change. A null @p value stands for a removed entry.
qint64 checksum(const QByteArray &path, const QByteArray &key, const QByteArray &value,
                qint64 revision);

} // namespace welmo::controller
