#pragma once

#include <functional>
#include <optional>

#include "tl/projectnames.h"

class QObject;

namespace welmo::pendant {

/// The names that the robot project offers, from the host's store, and the parameter files that the
/// controller holds; nothing while there is no connection, so that nobody calls a name unknown only
/// because it could not be looked up.
std::optional<tl::ProjectNames> hostProject();

/// Calls @p changed whenever the project in the store changes, while @p context lives.
void followHostProject(QObject *context, const std::function<void()> &changed);

} // namespace welmo::pendant
