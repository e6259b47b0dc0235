#pragma once

#include "controller/core/registry.h"
#include "controller/core/subsystem.h"
#include "controller/program/programinstruction.h"

namespace welmo::controller {

/// Runs a robot program, line by line, and the weld along with it, a millisecond at a time.
///
/// Commands: "tl_program.load" {name, text}, "tl_program.run" (from the top, or on where it was
/// paused), "tl_program.pause", "tl_program.stop". The node "tl_program.state" holds {name, state,
/// line, message}: state is idle, running, paused or error; line counts from 1, 0 for none.
///
/// It knows the language of the program checker and refuses the lines that the checker refuses; a
/// line whose word is nobody's is ignored with a message. The weld mode at the start counts: "real"
/// welds, "simu" moves just so without an arc, "test_run" as well, at the speed of the running
/// parameters.
class Program : public Subsystem
{
public:
    Program(ControllerContext &context, Registry &registry, Weld &weld, WireAndGas &wireAndGas,
            Robot &robot);

    void tick() override;
    bool isBusy() const override;

private:
    enum class State { Idle, Running, Paused, Error };

    Reply load(const QVariant &payload);
    Reply run();
    Reply runFromTop();
    Reply resume();
    Reply pause();
    Reply stop();
    Reply prepareStage();
    void step();
    void stepInstruction();
    void beginNext();
    void finish();
    void ignore(const tl::ParsedLine &line, const char *why);
    void fail(const QString &reason);
    void end(State state, const QString &message);
    void setState(State state);
    QVariantMap stateMap() const;
    void tell();

    ControllerContext &m_context;
    ProgramStage m_stage;
    QString m_name;
    std::vector<tl::ParsedLine> m_lines;
    size_t m_next = 0; // of m_lines
    std::unique_ptr<ProgramInstruction> m_instruction;
    State m_state = State::Idle;
    int m_line = 0;
    int m_ignored = 0;
    QString m_message;
    QVariantMap m_told;
    qint64 m_time = 0; // up to which everything was carried out
};

} // namespace welmo::controller
