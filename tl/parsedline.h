#pragma once

#include <optional>
#include <vector>

#include "tl/instruction.h"
#include "tl/pointexpression.h"
#include "tl/token.h"

namespace welmo::tl {

/// A line of a program, read once; whoever has to do with the line works with this.
///
/// Around its instruction a line may carry white space, and after it semicolons and a comment,
/// which starts with "//". A line whose text starts with "//", "#" or "!" is a comment as a whole.
/// What stands between is the line's code.
struct ParsedLine
{
    /// A point argument.
    struct Point
    {
        Token token;
        PointReading reading;
    };

    QString text; ///< the whole line
    int codeStart = 0; ///< in the text, counted from 0
    int codeEnd = 0; ///< the place after it; codeStart in a line without code
    int commentStart = -1; ///< -1 without one

    Token word; ///< the first word of the code
    const Instruction *instruction = nullptr; ///< its row; null for a word that is nobody's here
    /// The code as the instruction's form cuts it, the word included; empty without an instruction.
    Tokens tokens;
    Problems problems; ///< in the order in which they are to be reported
    /// The number of arguments was wrong, and nothing below was filled in.
    bool isRefused = false;

    /// Files: an entry for each that the instruction names, empty where none was recognised; the
    /// names are spelled as in the table of files.
    std::vector<std::optional<QString>> files;
    /// Files: what stands in the quotes, a file or not, up to the first argument without quotes.
    QStringList names;

    std::optional<double> seconds; ///< Timed: as written; empty for a time that is refused

    std::optional<Point> aux; ///< Move: only where the instruction has two points
    std::optional<Point> target; ///< Move
    std::optional<Token> speed, zone, tool; ///< Move
    std::optional<Token> wobj; ///< Move: may be missing
    std::optional<Token> weave; ///< Move: may be missing; with its quotes

    QString code() const { return text.mid(codeStart, codeEnd - codeStart); }
    QString before() const { return text.left(codeStart); }
    QString after() const { return text.mid(codeEnd); }
    bool hasCode() const { return codeEnd > codeStart; }
    int column() const { return codeStart + 1; } ///< where the code starts
    bool is(Word which) const { return instruction && instruction->word == which; }
    /// Move: the weave file; empty for none, and for what is none.
    QString weaveFile() const;
};

/// The weave combo's entry for "no weave".
inline const QString noWeave = QStringLiteral("NULL");

} // namespace welmo::tl
