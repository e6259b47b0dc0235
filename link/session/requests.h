#pragma once

#include "controller/core/request.h"
#include "tessa/controllerlink.h"

namespace welmo::links {

/// A host's request in the controller's form.
controller::Request toController(const tessa::LinkRequest &request);
/// The present time, as the audit stores it.
QString timeOfDay();

} // namespace welmo::links
