#pragma once

#include "controller/core/controllercontext.h"

namespace welmo::controller {

/// Fills a controller that has no parameter files yet with what the examples need: files 1 to 3 of
/// arc start, welding and arc end, for 1.2 mm wire on 3, 6 and 10 mm of steel, and a welder that is
/// enabled and connected. Whoever has files already keeps them as they are.
Reply addExampleFiles(ControllerContext &context);

} // namespace welmo::controller
