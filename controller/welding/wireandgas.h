#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/holdtorun.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

class Weld;
class Welder;

/// Wire and gas outside a weld: keys of the pendant move wire while they are held and start a gas
/// test, and so do program lines. A start may be refused, a stop never is. Every start and stop is
/// in the journal, with its reason.
class WireAndGas : public Subsystem
{
public:
    enum class Wire { Still, Feeding, Retracting };

    /// @p hold must outlive this; it says whether a key's motion may continue.
    WireAndGas(ControllerContext &context, Registry &registry, const Welder &welder,
               const Weld &weld, HoldToRun &hold);

    void tick() override;
    bool isBusy() const override { return m_wire != Wire::Still || m_gasEnd > 0; }
    int paceMs() const override;

    Wire wire() const { return m_wire; }
    bool gasFlows() const { return m_gasEnd > 0; }

    /// A program line moves the wire until stopProgram(); no key is held for it.
    Reply moveByProgram(Wire direction);
    /// A program line lets gas flow until stopProgram().
    Reply flowByProgram();
    /// True while wire or gas is on for a program.
    bool runsForProgram() const;
    /// Stops the wire and gas of a program.
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
    int m_press = 0; // the press of that key
    qint64 m_gasEnd = 0; // 0: no gas flows
};

} // namespace welmo::controller
