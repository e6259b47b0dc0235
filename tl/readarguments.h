#pragma once

namespace welmo::tl {

struct ParsedLine;

/// Parses what follows the word of the line's instruction; part of parse().
void readArguments(ParsedLine *line);

} // namespace welmo::tl
