#pragma once

#include "tl/parsedline.h"

namespace welmo::tl {

/// Reads any line.
ParsedLine parse(const QString &line);

/// Reads a line as the instruction's property form does: all of the text is code, and its first
/// word is not looked at.
ParsedLine parseAs(Word word, const QString &text);

} // namespace welmo::tl
