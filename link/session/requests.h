#pragma once

#include "controller/core/request.h"
#include "tessa/controllerlink.h"

namespace welmo::links {

/// A host's question in the controller's words.
controller::Request toController(const tessa::LinkRequest &request);
/// Now, as the audit keeps it.
QString timeOfDay();

} // namespace welmo::links
