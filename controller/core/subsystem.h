#pragma once

#include "controller/core/request.h"

namespace welmo::controller {

/// One responsibility of the controller. It enters its nodes and commands into the registry when it
/// is made, and runs by itself in tick() while it is busy.
class Subsystem
{
public:
    virtual ~Subsystem() = default;
    /// Writes what has to be in every store, when it is not there yet.
    virtual Reply start() { return {}; }
    /// Carries out what has become due by the clock.
    virtual void tick() { }
    /// True while something goes on that needs tick() now and then.
    virtual bool isBusy() const { return false; }
    /// How often tick() is wanted while busy, in milliseconds.
    virtual int paceMs() const { return 20; }
};

} // namespace welmo::controller
