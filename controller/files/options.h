#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

/// How long a test of the gas lasts, in seconds.
Reply gasDetectTime(const ControllerContext &context);

/// The cell's small sets of options, each one value: running parameters, anti-collision, and the
/// torch that clamps the wire. A set is not there until it was written first.
class Options : public Subsystem
{
public:
    Options(ControllerContext &context, Registry &registry);

private:
    Reply setRunning(const QVariant &payload);
    Reply anticollisionState() const;
    Reply setAnticollision(const QVariant &payload);
    Reply setClampingTorch(const QVariant &payload);
    Reply saveAndTell(const QString &path, const QVariant &value);

    ControllerContext &m_context;
};

} // namespace welmo::controller
