#pragma once

#include <memory>

#include "tessa/controllerlink.h"

namespace welmo::controller {
class Faults;
}

namespace welmo::pendant {

struct Options;

/// The link to a controller, and the faults that can be simulated there.
struct Connection
{
    std::unique_ptr<tessa::ControllerLink> link;
    controller::Faults *faults = nullptr; ///< owned by the link; null if none can be simulated
};

/// A link to the cell that the options name, else to a virtual controller in this process whose
/// files are in the data folder.
Connection connectTo(const Options &options);

} // namespace welmo::pendant
