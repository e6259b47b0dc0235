#pragma once

#include <QStringList>

class QIODevice;

namespace welmo::book {

/// Runs "weldbook list|show|export|report|verify" and writes what it tells to @p out. Answers the
/// exit status: 0, 1 when something is wrong with the book, 2 when the arguments are; then there
/// is a line in @p problem.
int runCommand(const QStringList &arguments, QIODevice *out, QString *problem);

} // namespace welmo::book
