#pragma once

#include <QString>
#include <vector>

namespace fleet {

/// "p50 0.12 ms, p99 0.80 ms" for times in microseconds, which are sorted by the call.
QString spread(std::vector<qint64> &microseconds);

} // namespace fleet
