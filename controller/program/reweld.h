#pragma once

#include <deque>

#include "controller/program/programinstruction.h"

namespace welmo::controller {

/// Something to be carried out apart from the order of the lines.
struct PlannedStep
{
    size_t line; ///< that it belongs to, from 0
    std::unique_ptr<ProgramInstruction> instruction; ///< null: what the line says
};

/// How a gap is welded: to its start, an arc there, along to its end or the seam's, and the arc off
/// again. Where the run ended within the seam the rest is the program's own, from resumeAt().
std::deque<PlannedStep> reweldSteps(const SeamTrack::Gap &gap,
                                    const std::vector<tl::ParsedLine> &lines);

/// The line, from 0, that the program goes on with afterwards; beyond the last for none.
size_t resumeAt(const SeamTrack::Gap &gap, const std::vector<tl::ParsedLine> &lines);

} // namespace welmo::controller
