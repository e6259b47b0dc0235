#pragma once

#include <QString>
#include <optional>

namespace welmo::pendant {

class ProgramDocument;

/// A start within a seam, which leaves out the ArcOn. Lines count from 0.
struct SeamStart
{
    int move; ///< the first weld move that lacks its arc
    QString word; ///< its instruction
    int arcOn;
    int approach; ///< the move to where the arc is struck; the ArcOn itself if none is before it
};

/// Empty if the program can start at @p line without losing an arc.
std::optional<SeamStart> seamStartAt(const ProgramDocument &program, int line);

} // namespace welmo::pendant
