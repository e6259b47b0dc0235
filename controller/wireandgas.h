#pragma once

#include "controller/cell.h"
#include "controller/registry.h"
#include "controller/unit.h"

namespace controller {

class Welder;

/// What the keys of a pendant move by hand: the wire while a key is held, and the gas for as long
/// as a test of it takes. Starting is refused while something stands against it, stopping never.
class WireAndGas : public Unit
{
public:
    WireAndGas(Cell &cell, Registry &registry, const Welder &welder);

    void tick() override;
    bool isBusy() const override { return m_gasEnd > 0; }

private:
    enum class Wire { Still, Feeding, Retracting };

    Reply moveWire(const Request &request);
    Reply startWire(Wire direction, const QString &cause);
    void stopWire(const QString &cause);
    Reply startGas();
    void stopGas(const QString &cause);

    Cell &m_cell;
    const Welder &m_welder;
    Wire m_wire = Wire::Still;
    qint64 m_gasEnd = 0; // 0: no gas flows
};

} // namespace controller
