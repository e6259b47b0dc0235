#pragma once

#include <QByteArray>

namespace welmo::controller {

/// Of an entry as it is stored: another one after any change of a single byte, and after nearly
/// every other change. A @p value that is null stands for a removed entry.
qint64 checksum(const QByteArray &path, const QByteArray &key, const QByteArray &value,
                qint64 revision);

} // namespace welmo::controller
