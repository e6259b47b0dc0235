#pragma once

#include "controller/core/request.h"

namespace welmo::controller {

/// One responsibility of the controller. It registers its nodes and commands when it is made, and
/// proceeds by itself in tick() while it is busy.
class Subsystem
{
public:
    virtual ~Subsystem() = default;
    /// Writes what every store must hold, where it is missing.
    virtual Reply start() { return {}; }
    /// Carries out what is due by the clock.
    virtual void tick() { }
    /// True while something proceeds that needs tick().
    virtual bool isBusy() const { return false; }
    /// How often tick() is to be called while busy, in milliseconds.
    virtual int paceMs() const { return 20; }
};

} // namespace welmo::controller
