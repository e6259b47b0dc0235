#pragma once

#include <QString>

namespace welmo::tl {

/// The line as the instruction's forms write it, with the arguments that it has now and no others:
/// one blank after the word, single commas, files spelled as in their table, numbers as
/// numberText(), no white space around it.
///
/// A null string for a line that is not ours, that its property form refuses (other than for white
/// space), or that would lose something: a value of more than 6 digits, an empty argument, or
/// characters that reading drops, such as a comment.
QString normalForm(const QString &line);

/// True when @p written, what a property form made of @p line, says all that the line says; it may
/// say more, such as a work object that the line leaves to the controller. False for a line without
/// a normal form.
bool keepsAll(const QString &line, const QString &written);

} // namespace welmo::tl
