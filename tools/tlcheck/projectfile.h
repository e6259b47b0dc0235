#pragma once

#include <QString>
#include <optional>

#include "tl/projectnames.h"

namespace welmo::tlcheck {

/// The names in the project that a pendant keeps in its data folder; nothing, with one line in
/// @p problem, when it cannot be read. Nothing is written or created there, whether a pendant runs
/// on the folder, has ended or was killed.
std::optional<tl::ProjectNames> readProject(const QString &folder, QString *problem);

} // namespace welmo::tlcheck
