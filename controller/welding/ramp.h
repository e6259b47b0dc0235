#pragma once

namespace welmo::controller {

/// A value that moves evenly to its target, in steps of a millisecond.
class Ramp
{
public:
    double value() const { return m_value; }
    void jump(double value) { aim(value, 0); }
    /// Starts from the present value; 0 ms jumps.
    void aim(double target, int ms)
    {
        m_target = target;
        m_left = ms;
        if (ms <= 0)
            m_value = target;
    }
    void step()
    {
        if (m_left > 0)
            m_value += (m_target - m_value) / m_left--;
    }

private:
    double m_value = 0;
    double m_target = 0;
    int m_left = 0;
};

} // namespace welmo::controller
