#pragma once

#include <memory>

#include "tessa/controllerlink.h"

namespace welmo::controller {
class Faults;
}

namespace welmo::pendant {

struct Options;

/// The way to a controller, and what can be made to go wrong there.
struct Connection
{
    std::unique_ptr<tessa::ControllerLink> link;
    controller::Faults *faults = nullptr; ///< lives with the link; null when there are none
};

/// The cell on the network that the options name, else a virtual controller inside this process,
/// its files in the data folder.
Connection connectTo(const Options &options);

} // namespace welmo::pendant
