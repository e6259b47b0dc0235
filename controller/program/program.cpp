#include "controller/program/program.h"

#include <algorithm>

#include "controller/core/fields.h"
#include "controller/robot/robot.h"
#include "controller/welding/weld.h"
#include "controller/welding/wireandgas.h"
#include "schema/names.h"
#include "schema/weldmode.h"

using Event = welmo::controller::Journal::Event;

namespace welmo::controller {

namespace {

constexpr double defaultDryRunSpeed = 200; // mm/s
constexpr qint64 longestCatchUp = 5000; // ms; a computer that slept goes on where it was

Reply wrongState(const char *text)
{
    return Reply::refused(WrongState, QString::fromLatin1(text));
}

} // namespace

Program::Program(ControllerContext &context, Registry &registry, Weld &weld, WireAndGas &wireAndGas,
                 Robot &robot)
    : m_context(context)
    , m_stage{context, weld, wireAndGas, robot}
    , m_told(stateMap())
{
    registry.addValue(names::programState, [this] { return Reply::with(stateMap()); });
    registry.addCommand(names::loadProgram,
                        [this](const Request &request) { return load(request.payload); });
    registry.addCommand(names::runProgram, [this](const Request &) { return run(); });
    registry.addCommand(names::pauseProgram, [this](const Request &) { return pause(); });
    registry.addCommand(names::stopProgram, [this](const Request &) { return stop(); });
}

bool Program::isBusy() const
{
    return m_state == State::Running || m_stage.weld.isBusy();
}

void Program::tick()
{
    const qint64 now = m_context.now();
    m_time = isBusy() ? std::max(m_time, now - longestCatchUp) : now;
    for (; m_time < now; ++m_time) {
        m_stage.speed = 0;
        if (m_state == State::Running)
            step();
        m_stage.weld.advance(m_stage.speed);
    }
    tell();
}

Reply Program::load(const QVariant &payload)
{
    if (m_state == State::Running || m_state == State::Paused)
        return wrongState("a program is being run");
    Reply wanted = checked(payload, {text("name"), text("text")}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    m_name = childAt(wanted.value, QStringLiteral("name")).toString();
    m_lines.clear();
    const QStringList lines =
        childAt(wanted.value, QStringLiteral("text")).toString().split(QLatin1Char('\n'));
    for (const QString &line : lines)
        m_lines.push_back(tl::parse(line));
    m_line = 0;
    m_message.clear();
    m_state = State::Idle;
    return {};
}

Reply Program::run()
{
    if (m_state == State::Running)
        return wrongState("the program runs");
    return m_state == State::Paused ? resume() : runFromTop();
}

Reply Program::runFromTop()
{
    if (m_name.isEmpty())
        return wrongState("no program is loaded");
    Reply reply = prepareStage();
    if (reply.ok())
        reply = m_stage.robot.seize();
    if (!reply.ok())
        return reply;
    m_stage.weld.abandon();
    m_next = 0;
    m_line = 0;
    m_ignored = 0;
    m_message.clear();
    m_instruction.reset();
    setState(State::Running);
    return {};
}

Reply Program::prepareStage()
{
    Reply mode = m_context.load(names::weldMode);
    Reply running = m_context.load(names::runningParam);
    if (!mode.ok() || !running.ok())
        return mode.ok() ? running : mode;
    const QString word = childAt(mode.value, QStringLiteral("mode")).toString();
    const bool tests = word.isEmpty() || word == QLatin1String(schema::weldmode::testRun);
    const QVariant speed = childAt(running.value, QStringLiteral("test_run_speed"));
    m_stage.weave.reset();
    m_stage.dry = word != QLatin1String(schema::weldmode::real);
    m_stage.dryRunSpeed = tests ? (speed.isValid() ? speed.toDouble() : defaultDryRunSpeed) : 0;
    return {};
}

Reply Program::resume()
{
    Reply reply = m_instruction ? m_instruction->resume(m_stage) : Reply{};
    if (!reply.ok())
        return reply;
    m_stage.weld.resume();
    setState(State::Running);
    return {};
}

Reply Program::pause()
{
    if (m_state != State::Running)
        return wrongState("no program runs");
    if (m_instruction)
        m_instruction->pause(m_stage);
    m_stage.weld.interrupt();
    setState(State::Paused);
    return {};
}

Reply Program::stop()
{
    end(State::Idle, m_state == State::Idle ? m_message : QStringLiteral("stopped"));
    return {};
}

void Program::step()
{
    if (m_stage.robot.takeStop())
        pause();
    else if (!m_stage.weld.alarm().isEmpty())
        fail(m_stage.weld.alarm());
    else if (m_instruction)
        stepInstruction();
    else
        beginNext();
    tell();
}

void Program::stepInstruction()
{
    const std::optional<Reply> ended = m_instruction->step(m_stage);
    if (!ended)
        return;
    m_instruction.reset();
    if (!ended->ok())
        fail(ended->text);
}

void Program::beginNext()
{
    while (m_next < m_lines.size() && !m_lines[m_next].hasCode())
        ++m_next;
    if (m_next == m_lines.size())
        return finish();
    const tl::ParsedLine &line = m_lines[m_next++];
    m_line = int(m_next);
    if (!line.instruction)
        return ignore(line, "is unknown");
    if (!line.problems.isEmpty())
        return fail(line.problems.first().english());
    m_instruction = makeInstruction(line);
    if (!m_instruction)
        return ignore(line, "is not carried out");
    const Reply begun = m_instruction->begin(m_stage);
    if (begun.ok())
        stepInstruction();
    else
        fail(begun.text);
}

void Program::finish()
{
    QString message = QStringLiteral("finished");
    if (m_ignored > 0)
        message += QStringLiteral(", lines ignored: %1").arg(m_ignored);
    if (m_stage.weld.isWelding())
        message += QStringLiteral(", the arc was still on");
    end(State::Idle, message);
}

void Program::ignore(const tl::ParsedLine &line, const char *why)
{
    ++m_ignored;
    m_message = QStringLiteral("line %1: \"%2\" %3 and was ignored")
                    .arg(QString::number(m_line), line.word.text, QLatin1String(why));
    m_context.record(Event::Message, m_message);
}

void Program::fail(const QString &reason)
{
    end(State::Error, QStringLiteral("line %1: %2").arg(m_line).arg(reason));
    m_context.record(Event::Alarm, m_message);
}

void Program::end(State state, const QString &message)
{
    m_stage.weld.abandon();
    m_stage.wireAndGas.stopProgram();
    m_stage.robot.yield();
    m_instruction.reset();
    m_message = message;
    if (state == State::Idle)
        m_line = 0;
    if (state != m_state)
        setState(state);
}

void Program::setState(State state)
{
    m_state = state;
    m_context.record(Event::Program, childAt(stateMap(), QStringLiteral("state")).toString());
}

QVariantMap Program::stateMap() const
{
    static const QStringList words{QStringLiteral("idle"), QStringLiteral("running"),
                                   QStringLiteral("paused"), QStringLiteral("error")};
    return {{QStringLiteral("name"), m_name},
            {QStringLiteral("state"), words.at(static_cast<int>(m_state))},
            {QStringLiteral("line"), m_line},
            {QStringLiteral("message"), m_message}};
}

void Program::tell()
{
    const QVariantMap state = stateMap();
    if (state == m_told)
        return;
    m_told = state;
    m_context.notify(names::programState, state);
}

} // namespace welmo::controller
