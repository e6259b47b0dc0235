#pragma once

#include "controller/cell.h"
#include "controller/registry.h"
#include "controller/unit.h"

namespace controller {

/// How long a test of the gas lasts, in seconds.
Reply gasDetectTime(const Cell &cell);

/// The cell's small sets of options, each one value: running parameters, anti-collision, and the
/// torch that clamps the wire. A set is not there until it was written first.
class Options : public Unit
{
public:
    Options(Cell &cell, Registry &registry);

private:
    Reply setRunning(const QVariant &payload);
    Reply anticollisionState() const;
    Reply setAnticollision(const QVariant &payload);
    Reply setClampingTorch(const QVariant &payload);
    Reply saveAndTell(const QString &path, const QVariant &value);

    Cell &m_cell;
};

} // namespace controller
