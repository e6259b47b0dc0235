#pragma once

#include <QStringList>

namespace welmo::controller {

/// Writes each damaged entry of the store @p file anew: with the value that the audit gives, if the
/// checksum confirms it, else with that of @p backup, which may be empty for none. Adds a line on
/// each entry to @p lines. False if the store cannot be opened, which one line says, or if an entry
/// stays damaged.
bool repair(const QString &file, const QString &backup, QStringList *lines);

} // namespace welmo::controller
