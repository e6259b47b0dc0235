#pragma once

#include <QtGlobal>
#include <random>

#include "controller/welding/ramp.h"
#include "controller/welding/welddata.h"

namespace welmo::controller {

/// The electrical side of a weld: current and voltage with the noise of a real arc, and what was
/// counted while it burned. It proceeds in steps of a millisecond.
class Arc
{
public:
    /// The same seed gives the same noise.
    explicit Arc(quint32 seed)
        : m_random(seed)
    { }

    bool isBurning() const { return m_burning; }
    /// Strikes the arc, and rises to @p setpoint within @p ramp ms.
    void strike(const Setpoint &setpoint, int ramp);
    /// Changes the set values, with or without an arc.
    void aim(const Setpoint &setpoint, int ramp);
    /// Power is on without an arc: the wire has the machine's full voltage.
    void openCircuit();
    void off();

    /// Carries out one millisecond, with the torch at @p speed mm/s; without an arc the wire comes
    /// at @p wireSpeed m/min.
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
