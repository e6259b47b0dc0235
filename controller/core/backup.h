#pragma once

#include <QString>

namespace welmo::controller {

/// Writes everything that the store @p file holds at this moment to the new file @p backup, which
/// stands by itself; a controller may be at work on the store. One line when that cannot be done.
QString backUp(const QString &file, const QString &backup);

/// Puts what a backup holds in the place of the store @p file, under a new identity. What was there
/// is kept beside it, under its name with ".replaced-" and the time. One line when that cannot be
/// done; then everything is as it was.
QString restore(const QString &file, const QString &backup);

} // namespace welmo::controller
