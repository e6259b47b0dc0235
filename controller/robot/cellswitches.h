#pragma once

#include <optional>

#include "controller/core/reason.h"

namespace welmo::controller {

/// The switches of a cell: power, operating mode and safety circuit.
struct CellSwitches
{
    bool power = true;
    bool automatic = false; ///< false: manual, a person stands beside the robot
    bool fault = false; ///< such as a pressed emergency stop
};

/// Whether the pendant is lost: it has sent a beat before, but no longer does. Without any beat
/// there is no pendant to lose.
class PendantWatch
{
public:
    static constexpr int goneAfterMs = 1000;

    void beat(qint64 time) { m_last = time; }
    bool isGone(qint64 now) const { return m_last && now - *m_last >= goneAfterMs; }

private:
    std::optional<qint64> m_last;
};

/// What to check before anything moves the robot.
struct Surroundings
{
    CellSwitches switches;
    PendantWatch pendant;

    /// Why nothing may move; empty if it may.
    Reason hindrance() const
    {
        if (!switches.power)
            return {QStringLiteral("no_power")};
        return switches.fault ? Reason{QStringLiteral("cell_fault")} : Reason{};
    }
};

} // namespace welmo::controller
