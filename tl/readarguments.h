#pragma once

namespace welmo::tl {

struct ParsedLine;

/// Reads what follows the word, for the instruction that the line has; part of parse().
void readArguments(ParsedLine *line);

} // namespace welmo::tl
