#pragma once

#include <memory>
#include <optional>

#include "controller/core/reader.h"
#include "controller/program/seamtrack.h"
#include "controller/welding/weld.h"
#include "tl/parsedline.h"

namespace welmo::controller {

class ControllerContext;
class Robot;
class WireAndGas;

/// What the lines of a running program use, and leave behind for later lines.
struct ProgramStage
{
    ControllerContext &context;
    Weld &weld;
    WireAndGas &wireAndGas;
    Robot &robot;
    bool dry = true; ///< moves without wire and gas
    Weld::Arc arc = Weld::Arc::None;
    double dryRunSpeed = 0; ///< of every move, in mm/s; 0: as the program says
    std::optional<Weave> weave = {}; ///< of the moves to come
    double speed = 0; ///< the torch's in the present millisecond, mm/s
    double seamLength = 0; ///< length of the moves along seams so far, mm
    size_t line = 0; ///< the present line, from 0
    SeamTrack track = {};
};

/// A program line being carried out, in steps of a millisecond.
class ProgramInstruction
{
public:
    virtual ~ProgramInstruction() = default;

    /// Starts the instruction. A refusal ends the program.
    virtual Reply begin(ProgramStage &stage) = 0;
    /// Carries out one millisecond. Empty while it goes on; then how it ended.
    virtual std::optional<Reply> step(ProgramStage &stage) = 0;
    /// The program pauses: motion stops until resume().
    virtual void pause(ProgramStage &) { }
    virtual Reply resume(ProgramStage &) { return {}; }
    /// Moves the robot back to where it was before; null if the instruction moved nothing.
    virtual std::unique_ptr<ProgramInstruction> undo() const { return nullptr; }
};

/// The instruction of a line without problems; null for one that is not carried out.
std::unique_ptr<ProgramInstruction> makeInstruction(const tl::ParsedLine &line);
/// The instruction of a move; part of makeInstruction().
std::unique_ptr<ProgramInstruction> makeMove(const tl::ParsedLine &line);
/// A move of an earlier run again, from @p way mm of it to its end or to @p until.
std::unique_ptr<ProgramInstruction> makeMoveOn(const tl::ParsedLine &line,
                                               const SeamTrack::Leg &leg, double way,
                                               std::optional<double> until);

/// Reads the weave file; @p weave is empty for "no weave".
Reply readWeave(const Reader &reader, const QString &file, std::optional<Weave> *weave);

} // namespace welmo::controller
