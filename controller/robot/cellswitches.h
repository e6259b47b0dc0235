#pragma once

#include <optional>

#include "controller/core/reason.h"

namespace welmo::controller {

/// What stands around the controller of a cell: its key switch, its power, its safety circuit.
struct CellSwitches
{
    bool power = true;
    bool automatic = false; ///< otherwise manual: somebody stands beside the robot
    bool fault = false; ///< such as a pressed emergency stop
};

/// Whether the pendant that last proved itself still does. A controller that no pendant ever beat
/// to has none to lose.
class PendantWatch
{
public:
    static constexpr int goneAfterMs = 1000;

    void beat(qint64 time) { m_last = time; }
    bool isGone(qint64 now) const { return m_last && now - *m_last >= goneAfterMs; }

private:
    std::optional<qint64> m_last;
};

/// What everything that moves the robot has to look at first.
struct Surroundings
{
    CellSwitches switches;
    PendantWatch pendant;

    /// Why nothing may move; empty when it may.
    Reason hindrance() const
    {
        if (!switches.power)
            return {QStringLiteral("no_power")};
        return switches.fault ? Reason{QStringLiteral("cell_fault")} : Reason{};
    }
};

} // namespace welmo::controller
