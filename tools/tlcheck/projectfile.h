#pragma once

#include <QString>
#include <optional>

#include "tl/projectnames.h"

namespace welmo::tlcheck {

/// Whether a pendant ever kept a project in the folder.
bool hasProject(const QString &folder);

/// The names in the project of a new controller; which files there are is not known.
tl::ProjectNames builtInProject();

/// The names in the project that a pendant keeps in its data folder; nothing, with one line in
/// @p problem, when it cannot be read. Nothing is written or created there, whether a pendant runs
/// on the folder, has ended or was killed.
std::optional<tl::ProjectNames> readProject(const QString &folder, QString *problem);

} // namespace welmo::tlcheck
