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

/// What the lines of a running program work with, and leave for those after them.
struct ProgramStage
{
    ControllerContext &context;
    Weld &weld;
    WireAndGas &wireAndGas;
    Robot &robot;
    bool dry = true; ///< moves without wire and gas
    Weld::Arc arc = Weld::Arc::None;
    double dryRunSpeed = 0; ///< of every move, in mm/s; 0: as the program says
    std::optional<Weave> weave = {}; ///< for the moves to come
    double speed = 0; ///< of the torch in the present millisecond, mm/s
    double seamLength = 0; ///< of the moves along seams so far, mm
    size_t line = 0; ///< that is being carried out, from 0
    SeamTrack track = {};
};

/// A line of a program that is being carried out, a millisecond at a time.
class ProgramInstruction
{
public:
    virtual ~ProgramInstruction() = default;

    /// Sets off. A refusal ends the program.
    virtual Reply begin(ProgramStage &stage) = 0;
    /// One millisecond further. Nothing while it goes on; then how it ended.
    virtual std::optional<Reply> step(ProgramStage &stage) = 0;
    /// The program pauses: what moves stops, until resume().
    virtual void pause(ProgramStage &) { }
    virtual Reply resume(ProgramStage &) { return {}; }
    /// What brings the robot back to where it was before; null where nothing moved.
    virtual std::unique_ptr<ProgramInstruction> undo() const { return nullptr; }
};

/// What carries out a line that has an instruction and no problems; null for an instruction that is
/// not carried out.
std::unique_ptr<ProgramInstruction> makeInstruction(const tl::ParsedLine &line);
/// A move; part of makeInstruction().
std::unique_ptr<ProgramInstruction> makeMove(const tl::ParsedLine &line);
/// The same move of an earlier run, from @p way mm of it on, to its end or @p until.
std::unique_ptr<ProgramInstruction> makeMoveOn(const tl::ParsedLine &line,
                                               const SeamTrack::Leg &leg, double way,
                                               std::optional<double> until);

/// The weave file, or nothing for "no weave".
Reply readWeave(const Reader &reader, const QString &file, std::optional<Weave> *weave);

} // namespace welmo::controller
