#pragma once

#include <QString>

namespace vu {

enum class LanguageType { First };

QString languagePath(const QString &name, LanguageType type, const QString &module);
QString templatePath(const QString &module, const QString &name);

} // namespace vu
