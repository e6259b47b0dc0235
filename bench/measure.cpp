#include "bench/measure.h"

#include <algorithm>
#include <cmath>

namespace bench {

Spread Spread::of(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const auto rank = [&values](double share) {
        const auto place = size_t(std::ceil(share * double(values.size())));
        return values[std::max<size_t>(place, 1) - 1];
    };
    return {rank(0.5), rank(0.99)};
}

Comparison compare(const Trial &ours, const Trial &floor, const Effort &effort)
{
    const int warmUps = std::max(1, effort.fewest / 10);
    for (int i = 0; i < warmUps; ++i) {
        ours();
        floor();
    }
    std::vector<double> ourCosts;
    std::vector<double> floorCosts;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < effort.trials; ++i) {
        const bool late = double(timer.elapsed()) > effort.seconds * 1000;
        if (late && i >= effort.fewest)
            break;
        if (i % 2 == 0)
            ourCosts.push_back(ours());
        floorCosts.push_back(floor());
        if (i % 2 != 0)
            ourCosts.push_back(ours());
    }
    const int trials = int(ourCosts.size());
    return {Spread::of(std::move(ourCosts)), Spread::of(std::move(floorCosts)), trials};
}

} // namespace bench
