#pragma once

#include <QString>
#include <optional>

#include "tl/projectnames.h"

namespace welmo::tlcheck {

/// Whether there is a pendant's project in the folder.
bool hasProject(const QString &folder);

/// The names in the project of a new controller; the existing files are unknown.
tl::ProjectNames builtInProject();

/// The names in the project that a pendant keeps in its data folder; on failure nothing, with one
/// line in @p problem. Nothing is written or created there, whether a pendant is running on the
/// folder, has ended or was killed.
std::optional<tl::ProjectNames> readProject(const QString &folder, QString *problem);

} // namespace welmo::tlcheck
