#pragma once

#include <QString>

namespace welmo::controller {

/// Writes all that the store @p file holds at this moment to the new file @p backup, which needs no
/// log beside it; a controller may be using the store. Returns one line if that failed.
QString backUp(const QString &file, const QString &backup);

/// Replaces the store @p file with a backup, under a new identity. The old store is kept beside it,
/// with ".replaced-" and the time added to its name. Returns one line if that failed; then nothing
/// has changed.
QString restore(const QString &file, const QString &backup);

} // namespace welmo::controller
