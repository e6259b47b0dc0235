#pragma once

#include <QString>
#include <optional>

#include "tools/tlcheck/projectnames.h"

namespace tlcheck {

/// The names in the project that a pendant keeps in its data folder; nothing, with one line in
/// @p problem, when it cannot be read. Nothing is written or created there, whether a pendant runs
/// on the folder, has ended or was killed.
std::optional<ProjectNames> readProject(const QString &folder, QString *problem);

} // namespace tlcheck
