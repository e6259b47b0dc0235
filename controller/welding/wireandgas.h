#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/holdtorun.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

class Weld;
class Welder;

/// Wire and gas apart from a weld: the keys of a pendant move wire while they are held and start a
/// test of the gas, and so do the lines of a program. Starting is refused while something stands
/// against it, stopping never. Every start and stop is in the journal, with its reason.
class WireAndGas : public Subsystem
{
public:
    enum class Wire { Still, Feeding, Retracting };

    /// @p hold is borrowed; it says whether what a key moves may go on.
    WireAndGas(ControllerContext &context, Registry &registry, const Welder &welder,
               const Weld &weld, HoldToRun &hold);

    void tick() override;
    bool isBusy() const override { return m_wire != Wire::Still || m_gasEnd > 0; }
    int paceMs() const override;

    Wire wire() const { return m_wire; }
    bool gasFlows() const { return m_gasEnd > 0; }

    /// A line of a program moves the wire until stopProgram(); no key is held for it.
    Reply moveByProgram(Wire direction);
    /// A line of a program lets gas flow until stopProgram().
    Reply flowByProgram();
    /// True while either goes on.
    bool runsForProgram() const;
    /// Stops what a program started.
    void stopProgram();

private:
    Reply moveWire(const Request &request);
    Reply startByKey(Wire direction, const QString &key);
    Reply mayMove() const;
    void setMoving(Wire direction, const QString &mover);
    void stopWire(const QString &cause);
    Reply testGas();
    Reply startGas(qint64 end, const QString &cause);
    void stopGas(const QString &cause);

    ControllerContext &m_context;
    const Welder &m_welder;
    const Weld &m_weld;
    HoldToRun &m_hold;
    Wire m_wire = Wire::Still;
    QString m_mover; // the key, or the program, that moves the wire
    int m_press = 0; // of that key
    qint64 m_gasEnd = 0; // 0: no gas flows
};

} // namespace welmo::controller
