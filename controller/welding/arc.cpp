#include "controller/welding/arc.h"

namespace welmo::controller {

namespace {

constexpr double openCircuitVoltage = 60;
constexpr double currentNoise = 0.015;
constexpr double voltageNoise = 0.01;
constexpr double msPerMinute = 60000;

} // namespace

void Arc::strike(const Setpoint &setpoint, int ramp)
{
    m_burning = true;
    aim(setpoint, ramp);
}

void Arc::aim(const Setpoint &setpoint, int ramp)
{
    m_current.aim(setpoint.current, ramp);
    m_voltage.aim(setpoint.voltage, ramp);
}

void Arc::openCircuit()
{
    m_burning = false;
    aim({0, openCircuitVoltage}, 0);
}

void Arc::off()
{
    m_burning = false;
    aim({}, 0);
}

void Arc::step(double speed, double wireSpeed)
{
    m_current.step();
    m_voltage.step();
    m_currentNoise = m_voltageNoise = 0;
    if (!m_burning) {
        m_wire += wireSpeed / msPerMinute;
        return;
    }
    constexpr double middle = std::mt19937::max() / 2.0;
    m_currentNoise = currentNoise * (m_random() / middle - 1);
    m_voltageNoise = voltageNoise * (m_random() / middle - 1);
    ++m_ms;
    m_distance += speed / 1000;
    m_wire += wireSpeedAt(m_current.value()) / msPerMinute;
}

void Arc::resetCounters()
{
    m_ms = 0;
    m_distance = m_wire = 0;
}

} // namespace welmo::controller
