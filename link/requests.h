#pragma once

#include "controller/request.h"
#include "tessa/controllerlink.h"

namespace links {

/// A host's question in the controller's words.
controller::Request toController(const tessa::LinkRequest &request);

} // namespace links
