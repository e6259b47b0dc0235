#pragma once

#include "controller/core/alarms.h"
#include "controller/program/programinstruction.h"
#include "controller/program/reweld.h"
#include "controller/robot/cellswitches.h"

namespace welmo::controller {

/// Runs a robot program, line by line, and the weld along with it, a millisecond at a time.
///
/// Commands: "tl_program.load" {name, text}, "tl_program.run" (from the top, from {line}, or on
/// where it was paused), "tl_program.step", "tl_program.reweld" (the first place
/// of the last run where a seam lacks its arc), "tl_program.pause", "tl_program.stop". The node
/// "tl_program.state" holds {name, state, line, message, result, reweld}: state is idle, running,
/// paused or error; line counts from 1, 0 for none, and is the next one while it is paused between
/// two; the message is for logs. What can be welded again is {line, lost, from}: a move's line, and
/// millimetres along the seam; line is 0 for nothing.
///
/// A step carries out one line and pauses: {line} where to begin unless it is paused, {back} to go
/// back to where the robot was before the last one. Nothing burns in a step, and a seam that it
/// goes into or leaves stays without an arc until the next "ArcOn".
///
/// The result says what came of the last run: {end, faults, seams, seams_of, welded, length,
/// arc_seconds, wire, ignored, arc_on, mode}: how it ended (finished, stopped, failed, or nothing
/// before it has), what went wrong as {code, arguments, line}, of how many seams so many were
/// welded, of how many millimetres that it came to, for how long an arc burned, how many metres of
/// wire it took, how many lines were ignored, whether the arc was still on, and the weld mode.
///
/// It knows the language of the program checker and refuses the lines that the checker refuses; a
/// line whose word is nobody's is ignored with a message. The weld mode at the start counts: "real"
/// welds, "simu" moves just so and simulates the readings of an arc, "test_run" moves at the speed
/// of the running parameters.
///
/// It is refused without power and in a fault of the cell, ends where one of these comes up, and in
/// manual mode pauses when the pendant is gone.
class Program : public Subsystem
{
public:
    Program(ControllerContext &context, Registry &registry, Weld &weld, WireAndGas &wireAndGas,
            Robot &robot, Alarms &alarms, const Surroundings &surroundings);

    void tick() override;
    bool isBusy() const override;
    bool isRunning() const { return m_state == State::Running; }
    bool hasFailed() const { return m_state == State::Error; }

private:
    enum class State { Idle, Running, Paused, Error };

    Reply load(const QVariant &payload);
    Reply started(const Reply &reply, const QString &user);
    Reply run(const QVariant &payload);
    Reply runFrom(size_t line);
    Reply resume();
    Reply stepOne(const QVariant &payload);
    Reply stepBack();
    void takeBack();
    Reply reweld();
    Reply pause();
    Reply stop();
    Reply mayStart(const QVariant &payload) const;
    Reply takeRobot();
    Reply setStage();
    Reply setWeave(size_t line);
    void makeDry();
    void forget();
    bool pauseIfAlone();
    void step();
    void stepInstruction();
    void beginNext();
    void beginLine(size_t line, std::unique_ptr<ProgramInstruction> instruction);
    void endLine();
    size_t nextCode(size_t line) const;
    void finish();
    void ignore(const tl::ParsedLine &line, const char *why);
    void fail(const Reply &reply);
    void fail(const Reason &reason, const QString &text);
    void endFor(const QString &text);
    void end(State state, const QString &word, const QString &message);
    QVariantMap result(const QString &end) const;
    void setState(State state);
    QVariantMap stateMap() const;
    QVariantMap reweldMap() const;
    void tell();

    ControllerContext &m_context;
    ProgramStage m_stage;
    Alarms &m_alarms;
    const Surroundings &m_surroundings;
    QString m_name, m_text;
    QString m_user; ///< who had it run
    std::vector<tl::ParsedLine> m_lines;
    size_t m_next = 0; // of m_lines
    std::unique_ptr<ProgramInstruction> m_instruction;
    std::deque<PlannedStep> m_plan; // before the next line
    struct Done
    {
        size_t line;
        std::unique_ptr<ProgramInstruction> undo;
        std::optional<Weave> weave; // before it
    };
    std::deque<Done> m_done; // the newest last
    std::optional<Weave> m_weaveBefore; // the present line
    bool m_goesBack = false; // with the present instruction
    bool m_oneLine = false; // then it pauses
    bool m_isDry = false; // by a step, whatever the mode says
    State m_state = State::Idle;
    int m_line = 0;
    int m_ignored = 0;
    int m_seams = 0; // of the program
    QString m_mode; // of the run
    QVariantMap m_result;
    QString m_message;
    QVariantMap m_told;
    qint64 m_time = 0; // up to which everything was carried out
};

} // namespace welmo::controller
