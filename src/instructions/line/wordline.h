#pragma once

#include "instructions/line/instruction.h"

namespace welmo::line {

/// Compares the whole line with the word of WeaveOff or SegOff: white space around it is wrong too.
Problems checkWordLine(Instruction instruction, const QString &line);

} // namespace welmo::line
