#pragma once

#include <QStringList>

class QIODevice;

namespace welmo::book {

/// Runs "weldbook list|show|export|report|verify" and writes the result to @p out. Returns the exit
/// status: 0, 1 if something is wrong with the book, 2 if the arguments are wrong, with a line in
/// @p problem.
int runCommand(const QStringList &arguments, QIODevice *out, QString *problem);

} // namespace welmo::book
