#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

/// The welding machine: which one it is, whether it is enabled, and whether it reports an error.
class Welder : public Subsystem
{
public:
    Welder(ControllerContext &context, Registry &registry);

    Reply start() override;
    bool isInError() const { return m_context.suffers(Faults::Fault::WelderError); }
    bool isEnabled() const { return m_enabled; }
    /// Whether the actual welding machine is connected; without it there is no arc.
    bool isConnected() const { return m_connected; }
    /// "ok", "disabled" or "error", the words of the node.
    QString stateWord() const;

private:
    Reply setting() const;
    Reply deviceParam() const;
    Reply setWelder(const QVariant &payload);

    ControllerContext &m_context;
    bool m_enabled = false;
    bool m_connected = false;
};

} // namespace welmo::controller
