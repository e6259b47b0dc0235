#pragma once

#include "controller/core/alarms.h"
#include "controller/program/programinstruction.h"
#include "controller/robot/cellswitches.h"

namespace welmo::controller {

/// Runs a robot program, line by line, and the weld along with it, a millisecond at a time.
///
/// Commands: "tl_program.load" {name, text}, "tl_program.run" (from the top, or on where it was
/// paused), "tl_program.pause", "tl_program.stop". The node "tl_program.state" holds {name, state,
/// line, message, result}: state is idle, running, paused or error; line counts from 1, 0 for none;
/// the message is for logs.
///
/// The result says what came of the last run: {end, faults, seams, seams_of, welded, length,
/// ignored, arc_on, mode}: how it ended (finished, stopped, failed, or nothing before it has), what
/// went wrong as {code, arguments, line}, of how many seams so many were welded, of how many
/// millimetres that it came to, how many lines were ignored, whether the arc was still on, and the
/// weld mode.
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
    Reply run(const QString &user);
    Reply runFromTop();
    Reply resume();
    Reply pause();
    Reply stop();
    Reason hindrance() const;
    Reply prepareStage();
    bool pauseIfAlone();
    void step();
    void stepInstruction();
    void beginNext();
    void finish();
    void ignore(const tl::ParsedLine &line, const char *why);
    void fail(const Reply &reply);
    void fail(const Reason &reason, const QString &text);
    void endFor(const QString &text);
    void end(State state, const QString &word, const QString &message);
    QVariantMap result(const QString &end) const;
    void setState(State state);
    QVariantMap stateMap() const;
    void tell();

    ControllerContext &m_context;
    ProgramStage m_stage;
    Alarms &m_alarms;
    const Surroundings &m_surroundings;
    QString m_name;
    QString m_user; ///< who had it run
    std::vector<tl::ParsedLine> m_lines;
    size_t m_next = 0; // of m_lines
    std::unique_ptr<ProgramInstruction> m_instruction;
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
