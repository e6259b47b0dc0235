#pragma once

#include "controller/cell.h"
#include "controller/registry.h"
#include "controller/unit.h"

namespace controller {

/// In which of its modes a program runs: dry ("test_run"), simulated ("simu") or welding ("real").
class WeldMode : public Unit
{
public:
    WeldMode(Cell &cell, Registry &registry);

private:
    Reply read() const;
    Reply change(const QVariant &payload);

    Cell &m_cell;
};

} // namespace controller
