#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

/// The weld mode of programs: dry ("test_run"), simulated ("simu") or welding ("real").
class WeldMode : public Subsystem
{
public:
    WeldMode(ControllerContext &context, Registry &registry);

    /// Sets test run: an operator does not expect an arc from a controller that was just started.
    Reply start() override;

private:
    Reply read() const;
    Reply change(const QVariant &payload);

    ControllerContext &m_context;
};

} // namespace welmo::controller
