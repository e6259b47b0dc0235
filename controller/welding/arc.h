#pragma once

#include <QtGlobal>
#include <random>

#include "controller/welding/ramp.h"
#include "controller/welding/welddata.h"

namespace welmo::controller {

/// The electrical side of a weld: what flows, with the noise of a real arc, and what was counted
/// while it burned. A millisecond at a time.
class Arc
{
public:
    /// The same seed, the same noise.
    explicit Arc(quint32 seed)
        : m_random(seed)
    { }

    bool isBurning() const { return m_burning; }
    /// Strikes, and rises to @p setpoint within @p ramp ms.
    void strike(const Setpoint &setpoint, int ramp);
    /// Another set value, with or without an arc.
    void aim(const Setpoint &setpoint, int ramp);
    /// Power is on, and no arc: the wire shows the machine's full voltage.
    void openCircuit();
    void off();

    /// One millisecond, with the torch at @p speed mm/s and, without an arc, wire coming at
    /// @p wireSpeed m/min.
    void step(double speed, double wireSpeed);
    void resetCounters();

    double current() const { return m_current.value() * (1 + m_currentNoise); } ///< A
    double voltage() const { return m_voltage.value() * (1 + m_voltageNoise); } ///< V
    double minutes() const { return m_ms / 60000.0; } ///< of burning arc
    double distance() const { return m_distance; } ///< mm, welded
    double wireUsed() const { return m_wire; } ///< m

private:
    bool m_burning = false;
    Ramp m_current;
    Ramp m_voltage;
    std::mt19937 m_random;
    double m_currentNoise = 0;
    double m_voltageNoise = 0;
    int m_ms = 0;
    double m_distance = 0;
    double m_wire = 0;
};

} // namespace welmo::controller
