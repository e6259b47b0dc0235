#pragma once

#include <memory>

#include "controller/program/programpath.h"
#include "controller/robot/projectdata.h"
#include "tl/parsedline.h"

namespace welmo::controller {

enum class Way { Joint, Line, Circle };

/// Where a move's line leads from where the arm is, and how fast.
struct MovePlan
{
    std::shared_ptr<const ProgramPath> path;
    Frame tool = Frame::Identity(); ///< its tip, in the flange's frame
    double speed = 0; ///< that the line names, mm/s

    /// Fills @p plan from a move's line without problems, or says why the robot does not get there.
    static Reply make(const ProjectData &project, const tl::ParsedLine &line, Way way,
                      const Joints &from, MovePlan *plan);
};

/// How a move's word goes; nothing for another word.
std::optional<Way> wayOf(tl::Word word);

} // namespace welmo::controller
