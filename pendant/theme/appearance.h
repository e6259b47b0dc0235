#pragma once

#include <QString>
#include <QStringList>

namespace welmo::pendant {

/// The supported languages, English first.
QStringList knownLanguages();
/// The themes that come with the host, by name.
QStringList knownThemes();
/// The file of a theme that is given by name or by path.
QString themeFile(const QString &theme);

} // namespace welmo::pendant
