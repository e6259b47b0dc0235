#pragma once

#include <functional>
#include <optional>

#include "tl/projectnames.h"

class QObject;

namespace welmo::pendant {

/// The robot project's names, from the host's store, and the parameter files that the controller
/// has. Empty without a link, so that no name is reported as unknown only because it could not be
/// looked up.
std::optional<tl::ProjectNames> hostProject();

/// Calls @p changed when the project in the store changes, as long as @p context lives.
void followHostProject(QObject *context, const std::function<void()> &changed);

} // namespace welmo::pendant
