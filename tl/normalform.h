#pragma once

#include "tl/parsedline.h"

namespace welmo::tl {

/// The line's code as the instruction's forms write it, with exactly its present arguments: one
/// blank after the word, single commas, files spelled as in their table, numbers as numberText().
///
/// A null string for a line that is not the package's, that its property form refuses (other than
/// for tabs), or that would lose something: a value of more than 6 digits, an empty argument, or
/// characters that reading drops.
QString normalCode(const ParsedLine &line);

/// The whole line with its code in that form; indentation and comment stay, blanks at the end of a
/// line without a comment are removed. A null string if normalCode() returns one.
QString normalForm(const ParsedLine &line);
QString normalForm(const QString &line);

/// True if @p written, which a property form made of the code of @p line, says all that the line
/// says; it may say more, such as a work object that the line leaves to the controller. False for a
/// line without a normal form.
bool keepsAll(const ParsedLine &line, const QString &written);

} // namespace welmo::tl
