#pragma once

#include <memory>

#include "controller/program/programpath.h"
#include "controller/robot/projectdata.h"
#include "tl/parsedline.h"

namespace welmo::controller {

enum class Way { Joint, Line, Circle };

/// How a move's line leads from the arm's position to its target, and how fast.
struct MovePlan
{
    std::shared_ptr<const ProgramPath> path;
    Frame tool = Frame::Identity(); ///< the tool's tip in the flange's frame
    double speed = 0; ///< mm/s, as the line says

    /// Fills @p plan from a move's line without problems, or says why the robot cannot reach the
    /// target.
    static Reply make(const ProjectData &project, const tl::ParsedLine &line, Way way,
                      const Joints &from, MovePlan *plan);
};

/// The kind of path that a move's word stands for; empty for any other word.
std::optional<Way> wayOf(tl::Word word);

} // namespace welmo::controller
