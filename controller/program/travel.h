#pragma once

#include "controller/program/programinstruction.h"
#include "controller/program/programpath.h"

namespace welmo::controller {

// Moves without an arc that no line of the program names.

/// Back along a move, from @p way mm to its start.
std::unique_ptr<ProgramInstruction> makeTravelBack(std::shared_ptr<const ProgramPath> path,
                                                   double way, double speed);

/// To @p way mm of the leg: straight if it is near, else with a clearance from the work.
std::unique_ptr<ProgramInstruction> makeApproach(const SeamTrack::Leg &leg, double way);

/// Away from the work, along the tool, as far as the arm can.
std::unique_ptr<ProgramInstruction> makeRetreat(const Frame &tool);

} // namespace welmo::controller
