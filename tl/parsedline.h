#pragma once

#include <optional>
#include <vector>

#include "tl/instruction.h"
#include "tl/pointexpression.h"
#include "tl/token.h"

namespace welmo::tl {

/// A line of a program, parsed once and used by all that deal with the line.
///
/// White space may stand before and after the instruction, then semicolons and a comment, which
/// starts with "//". A line whose text starts with "//", "#" or "!" is a comment as a whole. The
/// text in between is the line's code.
struct ParsedLine
{
    /// A point argument.
    struct Point
    {
        Token token;
        PointReading reading;
    };

    QString text; ///< the whole line
    int codeStart = 0; ///< index in the text
    int codeEnd = 0; ///< index after the code; codeStart if there is none
    int commentStart = -1; ///< -1 if there is none

    Token word; ///< the first word of the code
    const Instruction *instruction = nullptr; ///< its row; null for an unknown word
    /// The code as the instruction's form splits it, the word included; empty without an
    /// instruction.
    Tokens tokens;
    Problems problems; ///< in the order in which they are to be reported
    /// The number of arguments is wrong, and the members below are empty.
    bool isRefused = false;

    /// Files: one entry for each file that the instruction names, empty if none was recognised; the
    /// names are spelled as in the table of files.
    std::vector<std::optional<QString>> files;
    /// Files: what is in the quotes, a file or not, up to the first argument without quotes.
    QStringList names;

    std::optional<double> seconds; ///< Timed: as written; empty for a time that is refused

    std::optional<Point> aux; ///< Move: only for instructions with two points
    std::optional<Point> target; ///< Move
    std::optional<Token> speed, zone, tool; ///< Move
    std::optional<Token> wobj; ///< Move: optional
    std::optional<Token> weave; ///< Move: optional; with its quotes

    QString code() const { return text.mid(codeStart, codeEnd - codeStart); }
    QString before() const { return text.left(codeStart); }
    QString after() const { return text.mid(codeEnd); }
    bool hasCode() const { return codeEnd > codeStart; }
    int column() const { return codeStart + 1; } ///< where the code starts
    bool is(Word which) const { return instruction && instruction->word == which; }
    /// Whether this is one of the package's moves, which weld within a seam.
    bool isWeldMove() const;
    /// Move: the weave file; empty if there is none, or the name is wrong.
    QString weaveFile() const;
};

/// The weave combo's entry for "no weave".
inline const QString noWeave = QStringLiteral("NULL");

} // namespace welmo::tl
