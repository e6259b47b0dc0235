#pragma once

#include <QString>

namespace vu {

enum class LanguageType {
    Compiled, ///< the module's .qm file among its compiled-in resources
    Installed ///< a .qm file in the folder "language" beside the executable
};

/// The path of the translation @p name ("welmo_cn", without extension) of @p module.
QString languagePath(const QString &name, LanguageType type, const QString &module);

/// The path of the JSON template @p name of @p module, among its compiled-in resources.
QString templatePath(const QString &module, const QString &name);

} // namespace vu
