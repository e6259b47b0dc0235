#pragma once

#include <deque>

#include "controller/program/programinstruction.h"

namespace welmo::controller {

/// Something to be carried out outside the order of the lines.
struct PlannedStep
{
    size_t line; ///< the line that it belongs to, from 0
    std::unique_ptr<ProgramInstruction> instruction; ///< null: what the line says
};

/// The steps that weld a gap: to its start, an arc there, along to its end or the seam's, and the
/// arc off again. If the run ended within the seam, the program itself continues from resumeAt().
std::deque<PlannedStep> reweldSteps(const SeamTrack::Gap &gap,
                                    const std::vector<tl::ParsedLine> &lines);

/// The line, from 0, with which the program continues afterwards; past the last line for none.
size_t resumeAt(const SeamTrack::Gap &gap, const std::vector<tl::ParsedLine> &lines);

} // namespace welmo::controller
