#pragma once

#include <QObject>
#include <QStringList>
#include <optional>

#include "schema/row.h"

namespace welmo {

/// The range of a voltage box in each voltage mode; empty until the welder has told it.
struct VoltageRanges
{
    std::optional<schema::Range> unified;
    std::optional<schema::Range> separate;

    /// Mode 0 is "Unified", any other is "Separate".
    const std::optional<schema::Range> &forMode(int mode) const
    {
        return mode == 0 ? unified : separate;
    }
};

/// What the connected welder offers: its modes, as source texts in its own order, and its voltage
/// ranges for the weld and for the arc end.
struct WelderLimits
{
    QStringList workModes;
    QStringList currentModes;
    QStringList voltageModes;
    VoltageRanges voltage;
    VoltageRanges arcoffVoltage;

    /// Asks the controller; empty if it cannot be reached or has no welder.
    static std::optional<WelderLimits> read(QObject *sender);
};

} // namespace welmo
