#pragma once

#include "controller/program/programinstruction.h"
#include "controller/program/programpath.h"

namespace welmo::controller {

// Ways of the robot that no line of the program names, without an arc.

/// Back along a move, from @p way mm to its start.
std::unique_ptr<ProgramInstruction> makeTravelBack(std::shared_ptr<const ProgramPath> path,
                                                   double way, double speed);

/// To @p way mm of the leg: straight from nearby, otherwise clear of the work on the way.
std::unique_ptr<ProgramInstruction> makeApproach(const SeamTrack::Leg &leg, double way);

/// Away from the work, along the tool, as far as the arm gets.
std::unique_ptr<ProgramInstruction> makeRetreat(const Frame &tool);

} // namespace welmo::controller
