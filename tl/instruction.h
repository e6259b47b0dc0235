#pragma once

#include <QString>

#include "tl/problem.h"
#include "tl/token.h"

namespace welmo::tl {

/// The welding instructions. Any other line is not ours.
enum class Instruction {
    None,
    ArcOn,
    ArcOff,
    WMoveL,
    WMoveC,
    WeaveOn,
    WeaveOff,
    FeedOnWire,
    FeedBackWire,
    DetectGas,
    SegOn,
    SegOff,
};

/// The instruction's word; empty for None.
QString instructionName(Instruction instruction);

/// What is said when a line of the instruction has not the right number of arguments.
const char *commandError(Instruction instruction);

/// The line's first word. It ends at white space, a comma, a semicolon, a quote or a parenthesis.
Token firstWord(const QString &line);

/// Whose line this is, by its first word alone; upper and lower case are different words.
Instruction classify(const QString &line);

/// "The line as a whole is wrong", at the start of the line's text.
Problem commandProblem(Instruction instruction, const QString &line);

} // namespace welmo::tl
