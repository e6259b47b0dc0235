#pragma once

#include <QElapsedTimer>
#include <functional>
#include <vector>

namespace bench {

/// Does the work of one side once and gives what it cost, in the unit of its row. What has to be
/// made ready or cleared away is left out of the figure.
using Trial = std::function<double()>;

/// How long @p work takes, in microseconds.
template<typename Work>
double microseconds(const Work &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1000;
}

struct Spread
{
    double median = 0;
    double p99 = 0; ///< of fewer than a hundred trials: the largest

    /// By nearest rank; @p values is not empty.
    static Spread of(std::vector<double> values);
};

struct Effort
{
    int trials; ///< of each side, at most
    int fewest; ///< of each side, however long they take
    double seconds; ///< for the whole row
};

struct Comparison
{
    Spread ours;
    Spread floor;
    int trials = 0;

    double medianRatio() const { return ours.median / floor.median; }
    double p99Ratio() const { return ours.p99 / floor.p99; }
};

/// Runs both sides in turns, so that whatever drifts meets both; who goes first alternates, too.
/// The first tenth warms up and does not count.
Comparison compare(const Trial &ours, const Trial &floor, const Effort &effort);

} // namespace bench
