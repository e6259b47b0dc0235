#pragma once

#include "tl/parsedline.h"

namespace welmo::tl {

/// Parses any line.
ParsedLine parse(const QString &line);

/// Parses a line as the instruction's property form does: all of the text is code, and its first
/// word is not checked.
ParsedLine parseAs(Word word, const QString &text);

} // namespace welmo::tl
