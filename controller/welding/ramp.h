#pragma once

namespace welmo::controller {

/// A value that moves evenly to where it is aimed, a millisecond at a time.
class Ramp
{
public:
    double value() const { return m_value; }
    void jump(double value) { aim(value, 0); }
    /// Sets off from the present value; @p ms of 0 jumps.
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
