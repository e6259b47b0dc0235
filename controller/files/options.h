#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

/// The duration of a gas test, in seconds.
Reply gasDetectTime(const ControllerContext &context);

/// The option sets, each one value: running parameters, anti-collision, and the torch that clamps
/// the wire. A set does not exist until it was first written.
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
