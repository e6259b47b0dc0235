#pragma once

#include <QElapsedTimer>
#include <functional>
#include <vector>

#include "bench/count.h"

namespace bench {

/// Does the work of one side once and returns its cost in the unit of its row. Preparing and
/// cleaning up do not count.
using Trial = std::function<double()>;

/// Measures from start() on: microseconds or, where they are counted, instructions.
class Meter
{
public:
    void start()
    {
        m_timer.start();
        if (count::isOn())
            count::begin();
    }
    double read() const
    {
        return count::isOn() ? count::end() : double(m_timer.nsecsElapsed()) / 1000;
    }

private:
    QElapsedTimer m_timer;
};

/// What @p work costs, in microseconds or instructions.
template<typename Work>
double cost(const Work &work)
{
    Meter meter;
    meter.start();
    work();
    return meter.read();
}

struct Spread
{
    double median = 0;
    double p99 = 0; ///< the largest if there are fewer than a hundred trials

    /// By nearest rank; @p values must not be empty.
    static Spread of(std::vector<double> values);
};

struct Effort
{
    int trials; ///< at most, for each side
    int fewest; ///< at least, however long they take
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

/// Runs both sides alternately, so that drift affects both alike, and alternates which goes first.
/// The first tenth is warm-up and does not count.
Comparison compare(const Trial &ours, const Trial &floor, const Effort &effort);

} // namespace bench
