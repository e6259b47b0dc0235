#pragma once

#include "tl/instruction.h"

namespace welmo::tl {

/// Compares the whole line with the word of WeaveOff or SegOff: white space around it is wrong too.
Problems checkWordLine(Instruction instruction, const QString &line);

} // namespace welmo::tl
