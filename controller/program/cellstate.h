#pragma once

#include "controller/core/alarms.h"
#include "controller/robot/cellswitches.h"

namespace welmo::controller {

class Program;
class Weld;
class Welder;
class WireAndGas;

/// The state of the cell. The node "cell.state" holds {state, power, automatic, fault, gas, wire,
/// checks}: gas says whether it flows, wire is still, feeding or retracting; state is idle,
/// running, paused, welding or fault. A failed program counts as a fault until its alarms are
/// acknowledged or another program runs. The command "cell.switch" takes any of {power, automatic,
/// fault}: on a real cell these are the power, the key switch and the safety circuit. The checks
/// are the sensors' readings: {gas, wire_moves, wire_free, strikes, burns, storage}, true where all
/// is well.
class CellState : public Subsystem
{
public:
    CellState(ControllerContext &context, Registry &registry, const Program &program,
              const Weld &weld, const Welder &welder, const WireAndGas &wireAndGas,
              const Alarms &alarms, Surroundings &surroundings);

    Reply start() override;
    void tick() override;

private:
    QVariantMap node() const;
    QString word() const;
    QVariantMap checks() const;
    QVariantMap flows() const;
    Reply turn(const QVariant &payload);

    ControllerContext &m_context;
    const Program &m_program;
    const Weld &m_weld;
    const Welder &m_welder;
    const WireAndGas &m_wireAndGas;
    const Alarms &m_alarms;
    CellSwitches &m_switches;
    QString m_told;
    QVariantMap m_toldChecks;
    QVariantMap m_toldFlows;
};

} // namespace welmo::controller
