#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

/// In which of its modes a program runs: dry ("test_run"), simulated ("simu") or welding ("real").
class WeldMode : public Subsystem
{
public:
    WeldMode(ControllerContext &context, Registry &registry);

    /// Nobody expects an arc of what was just switched on: it starts in test run.
    Reply start() override;

private:
    Reply read() const;
    Reply change(const QVariant &payload);

    ControllerContext &m_context;
};

} // namespace welmo::controller
