#pragma once

#include <QStringList>

namespace welmo::controller {

/// Writes each damaged entry of the store @p file anew: as the audit says that it was, where the
/// checksum bears that out, else as the @p backup has it, which may be empty for none. A line for
/// each entry says what came of it. False, with one line, when the store cannot be worked on, or
/// something in it stays damaged.
bool repair(const QString &file, const QString &backup, QStringList *lines);

} // namespace welmo::controller
