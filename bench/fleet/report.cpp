#include "bench/fleet/report.h"

#include <algorithm>

namespace fleet {

QString spread(std::vector<qint64> &microseconds)
{
    if (microseconds.empty())
        return QStringLiteral("nothing");
    std::sort(microseconds.begin(), microseconds.end());
    const auto at = [&](size_t percent) {
        return double(microseconds[(microseconds.size() - 1) * percent / 100]) / 1000;
    };
    return QStringLiteral("p50 %1 ms, p99 %2 ms").arg(at(50), 0, 'f', 2).arg(at(99), 0, 'f', 2);
}

} // namespace fleet
