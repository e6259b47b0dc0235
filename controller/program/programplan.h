#pragma once

#include <QString>
#include <array>
#include <vector>

#include "controller/core/reader.h"
#include "controller/robot/robotarm.h"
#include "tl/parsedline.h"

namespace welmo::controller {

/// What a program will do with real welding if nothing fails: its paths in the base frame, in mm,
/// and the time and wire that it takes. Computed with the code that also runs a program.
struct ProgramPlan
{
    using Place = std::array<double, 3>;

    struct Leg
    {
        int line; ///< from 0
        bool isSeam;
        QString file; ///< the welding file of a seam
        QString target; ///< the point's name
        bool isBeside; ///< the leg ends at an offset from it
        double length; ///< mm
        double seconds;
        std::vector<Place> way; ///< from start to end, without the weave
        std::vector<Place> weave; ///< with the weave; empty without one
    };

    std::vector<Leg> legs;
    std::vector<int> failed; ///< lines, from 0, that cannot be carried out
    double seconds = 0;
    double arcSeconds = 0;
    double seamLength = 0; ///< mm
    double wire = 0; ///< m

    /// @p from is the arm's position at the start.
    static ProgramPlan make(const Reader &reader, const std::vector<tl::ParsedLine> &lines,
                            const Joints &from);
};

} // namespace welmo::controller
