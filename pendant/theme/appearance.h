#pragma once

#include <QString>
#include <QStringList>

namespace welmo::pendant {

/// The languages that can be asked for, English first.
QStringList knownLanguages();
/// The themes that come with the host, by name.
QStringList knownThemes();
/// The file of a theme that is asked for by name or by path.
QString themeFile(const QString &theme);

} // namespace welmo::pendant
