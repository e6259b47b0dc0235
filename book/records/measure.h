#pragma once

#include <algorithm>
#include <cmath>

namespace welmo::book {

/// Statistics of a measured value over a seam; all 0 without samples.
struct Spread
{
    double mean = 0;
    double minimum = 0;
    double maximum = 0;
    double deviation = 0; ///< standard deviation of the samples
};

/// Computes statistics sample by sample, without keeping the samples (Welford's method, which stays
/// exact).
class Statistics
{
public:
    void add(double value)
    {
        ++m_count;
        const double before = value - m_spread.mean;
        m_spread.mean += before / m_count;
        m_squares += before * (value - m_spread.mean);
        m_spread.minimum = m_count == 1 ? value : std::min(m_spread.minimum, value);
        m_spread.maximum = m_count == 1 ? value : std::max(m_spread.maximum, value);
        m_spread.deviation = m_count > 1 ? std::sqrt(m_squares / (m_count - 1)) : 0;
    }
    int count() const { return m_count; }
    const Spread &spread() const { return m_spread; }

private:
    int m_count = 0;
    double m_squares = 0;
    Spread m_spread;
};

} // namespace welmo::book
