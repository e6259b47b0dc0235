#pragma once

#include <optional>

#include "tl/instruction.h"

namespace welmo::tl {

/// What a line of FeedOnWire, FeedBackWire or DetectGas says.
struct TimedLine
{
    std::optional<double> seconds; ///< as written; empty when the line was refused
    Problems problems;
};

/// Reads the line; its first word is not looked at. FeedBackWire accepts any time from 0, the
/// others from 0.1 seconds.
TimedLine parseTimedLine(Instruction instruction, const QString &line);

/// "FeedOnWire 1.5", see numberText().
QString formatTimedLine(Instruction instruction, double seconds);

} // namespace welmo::tl
