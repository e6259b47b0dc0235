#pragma once

#include <QMap>
#include <QString>

namespace fleet {

/// The processor time that this process has used, in seconds, by the kind of its threads: what a
/// thread's name says before its first '-' or digit, such as "cell". Ended threads do not count.
QMap<QString, double> processorSeconds();

/// That of a process with one thread.
double processorSeconds(qint64 process);

} // namespace fleet
