#pragma once

#include <QString>
#include <vector>

namespace fleet {

/// "p50 0.12 ms, p99 0.80 ms" of times in microseconds; they are sorted on the way.
QString spread(std::vector<qint64> &microseconds);

} // namespace fleet
