#pragma once

#include <QStringList>
#include <optional>

namespace welmo::tl {

/// The number in general format with at most 6 significant digits and a decimal point, in every
/// locale: "1.5", "2", "123457", "1e+06". @p value must be finite.
QString numberText(double value);

/// The inverse; empty if the text is no finite number. White space around it is ignored.
std::optional<double> readNumber(const QString &text);

/// @p name as it may be written in a line. Each character that would end the name, the argument or
/// the line (quotes, commas, semicolons, parentheses, control characters and line ends) becomes
/// "_". The result then most likely names nothing, which is reported when the line is read. Left
/// out, the rest could name something else; written, it could start another instruction.
QString nameText(const QString &name);

/// @p pattern with %1, %2 and %3 replaced by @p names, which may be any text: long ones are
/// shortened, and characters that cannot be printed are replaced.
QString filledIn(const QString &pattern, const QStringList &names);

} // namespace welmo::tl
