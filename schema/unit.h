#pragma once

#include <QString>

namespace welmo::schema {

/// The unit of a number; some depend on another value of the same file.
enum class Unit {
    None,
    ByCurrentMode, ///< ampere, or mm/s of wire
    ByVoltageMode, ///< percent or volt
    ByReference, ///< a length in mm or a frequency in Hz
    ByReferenceAndDwell, ///< ms, or mm
    Ampere,
    Millisecond,
    Second,
    Millimetre,
    MillimetrePerSecond,
    MetrePerMinute,
    Degree
};

/// The symbol shown behind a control, the same in every language; empty if it depends on another
/// value.
QString symbol(Unit unit);

} // namespace welmo::schema

/// The symbols by themselves, for units that depend on another value.
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
