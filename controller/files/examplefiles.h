#pragma once

#include "controller/core/controllercontext.h"

namespace welmo::controller {

/// Fills a controller without parameter files with those that the examples need: files 1 to 3 of
/// arc start, welding and arc end, for 1.2 mm wire on 3, 6 and 10 mm of steel, and a welder that is
/// enabled and connected. Existing files are kept as they are.
Reply addExampleFiles(ControllerContext &context);

} // namespace welmo::controller
