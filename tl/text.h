#pragma once

#include <QStringList>
#include <optional>

namespace welmo::tl {

/// General format with at most 6 significant digits and a decimal point, whatever the locale:
/// "1.5", "2", "123457", "1e+06". @p value is finite.
QString numberText(double value);

/// The inverse; nothing for a text that is no finite number. White space around it does not matter.
std::optional<double> readNumber(const QString &text);

/// @p name as it may stand in a line. Each character that would end the name, the argument or the
/// line (quotes, commas, semicolons, parentheses, control characters and line ends) becomes "_":
/// the name then most likely names nothing, which is reported when the line is read, whereas left
/// out it could name something else, and written as it is it could start another instruction.
QString nameText(const QString &name);

/// @p pattern with its %1, %2 and %3 replaced by @p names, which may hold anything: cut where they
/// are long, and without characters that do not print.
QString filledIn(const QString &pattern, const QStringList &names);

} // namespace welmo::tl
