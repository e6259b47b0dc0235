#pragma once

#include "controller/core/alarms.h"
#include "controller/program/programinstruction.h"
#include "controller/program/reweld.h"
#include "controller/robot/cellswitches.h"

namespace welmo::controller {

/// Runs a robot program line by line, together with the weld, in steps of a millisecond.
///
/// Commands: "tl_program.load" {name, text}, "tl_program.run" (from the top, from {line}, or on
/// where it was paused), "tl_program.step", "tl_program.reweld" (the first place of the last run
/// where a seam lacks its arc), "tl_program.pause", "tl_program.stop". The node "tl_program.state"
/// holds {name, state, line, message, result, reweld, stepped}: state is idle, running, paused or
/// error; line counts from 1, 0 for none, and is the next line while the program is paused between
/// two; message is for logs; stepped is true once steps were made, until the program runs on.
/// reweld is what can be welded again, {line, lost, from}: a move's line, and millimetres along the
/// seam; line is 0 for nothing.
///
/// A step carries out one line and pauses: {line} where to begin unless it is paused, {back} to
/// return to where the robot was before the last line. A step never strikes an arc, and a seam that
/// a step enters or leaves has no arc until the next "ArcOn". With real welding an alarm tells
/// when a run comes to a weld move of such a seam, or begins there.
///
/// The result describes the last run: {end, faults, seams, seams_of, welded, length, arc_seconds,
/// wire, ignored, arc_on, mode}: how it ended (finished, stopped, failed, or empty before its end),
/// its alarms as {code, arguments, line}, how many seams of how many were welded, how many
/// millimetres of how many, the seconds of burning arc, the metres of wire, the number of ignored
/// lines, whether the arc was still on, and the weld mode.
///
/// It uses the language of the program checker and refuses the lines that the checker refuses; a
/// line with an unknown word is ignored with a message. The weld mode at the start counts: "real"
/// welds, "simu" makes the same moves and simulates the readings of an arc, "test_run" moves at the
/// speed of the running parameters.
///
/// Without power, or in a fault of the cell, a program does not start, and a running one ends; in
/// manual mode it pauses if the pendant is lost.
class Program : public Subsystem
{
public:
    Program(ControllerContext &context, Registry &registry, Weld &weld, WireAndGas &wireAndGas,
            Robot &robot, Alarms &alarms, const Surroundings &surroundings);

    void tick() override;
    bool isBusy() const override;
    bool isRunning() const { return m_state == State::Running; }
    bool isPaused() const { return m_state == State::Paused; }
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
    void tellMissingArc(size_t line);
    void forget();
    bool pauseIfAlone();
    void step();
    void stepInstruction();
    void beginNext();
    void beginLine(size_t index, std::unique_ptr<ProgramInstruction> instruction);
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
    QString m_user; ///< who started the run
    std::vector<tl::ParsedLine> m_lines;
    size_t m_next = 0; // index in m_lines
    std::unique_ptr<ProgramInstruction> m_instruction;
    std::deque<PlannedStep> m_plan; // to be done before the next line
    struct Done
    {
        size_t line;
        std::unique_ptr<ProgramInstruction> undo;
        std::optional<Weave> weave; // the weave before it
    };
    std::deque<Done> m_done; // the newest is the last
    std::optional<Weave> m_weaveBefore; // the weave before the present line
    bool m_goesBack = false; // the present instruction leads back
    bool m_oneLine = false; // pause after one line
    bool m_isDry = false; // a step made the stage dry, whatever the weld mode
    int m_toldArcOn = -1; // the ArcOn whose seam was last told to lack its arc
    State m_state = State::Idle;
    int m_line = 0;
    int m_ignored = 0;
    int m_seams = 0; // of the whole program
    QString m_mode; // the weld mode of the run
    QVariantMap m_result;
    QString m_message;
    QVariantMap m_told;
    qint64 m_time = 0; // the clock's time up to which the run was carried out
};

} // namespace welmo::controller
