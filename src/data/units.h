#pragma once

#include <QString>

/// Unit symbols as they stand behind a control; symbols are the same in every language.
namespace welmo::units {

inline const QString ampere = QStringLiteral("A");
inline const QString volt = QStringLiteral("V");
inline const QString percent = QStringLiteral("%");
inline const QString ms = QStringLiteral("ms");
inline const QString second = QStringLiteral("s");
inline const QString hertz = QStringLiteral("Hz");
inline const QString mm = QStringLiteral("mm");
inline const QString mmPerSecond = QStringLiteral("mm/s");
inline const QString metrePerMinute = QStringLiteral("m/min");
inline const QString degree = QStringLiteral("°");

} // namespace welmo::units
