#include "controller/program/program.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "controller/core/fields.h"
#include "controller/robot/robot.h"
#include "controller/welding/weld.h"
#include "controller/welding/wireandgas.h"
#include "schema/names.h"
#include "schema/weldmode.h"
#include "tl/parse.h"

using Event = welmo::controller::Journal::Event;

namespace welmo::controller {

namespace {

const QString endKey = QStringLiteral("end");
constexpr double defaultDryRunSpeed = 200; // mm/s
constexpr size_t stepsKept = 1000; // the number of steps that can be undone
// In ms; time beyond it, as of a suspended computer, is not made up for.
constexpr qint64 longestCatchUp = 5000;

Reply wrongState(const char *text)
{
    return Reply::refused(WrongState, QString::fromLatin1(text));
}

} // namespace

Program::Program(ControllerContext &context, Registry &registry, Weld &weld, WireAndGas &wireAndGas,
                 Robot &robot, Alarms &alarms, const Surroundings &surroundings)
    : m_context(context)
    , m_stage{context, weld, wireAndGas, robot}
    , m_alarms(alarms)
    , m_surroundings(surroundings)
    , m_result(result({}))
    , m_told(stateMap())
{
    registry.addValue(names::programState, [this] { return Reply::with(stateMap()); });
    registry.addCommand(names::loadProgram,
                        [this](const Request &request) { return load(request.payload); });
    registry.addCommand(names::runProgram, [this](const Request &request) {
        return started(run(request.payload), request.author.user);
    });
    registry.addCommand(names::stepProgram, [this](const Request &request) {
        return started(stepOne(request.payload), request.author.user);
    });
    registry.addCommand(names::reweldProgram, [this](const Request &request) {
        return started(reweld(), request.author.user);
    });
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
        m_stage.track.follow(m_stage.weld.process());
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
    const QString name = childAt(wanted.value, QStringLiteral("name")).toString();
    const QString text = childAt(wanted.value, QStringLiteral("text")).toString();
    if (name != m_name || text != m_text)
        m_stage.track.clear(); // loading the same program again keeps its gaps
    m_name = name;
    m_text = text;
    m_lines.clear();
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines)
        m_lines.push_back(tl::parse(line));
    forget();
    m_seams = 0;
    m_line = 0;
    m_message.clear();
    m_result = result({});
    m_state = State::Idle;
    return {};
}

// Remembers the user, to whom alarms of the run are assigned.
Reply Program::started(const Reply &reply, const QString &user)
{
    if (reply.ok())
        m_user = user;
    return reply;
}

Reply Program::run(const QVariant &payload)
{
    Reply line = mayStart(payload);
    if (!line.ok())
        return line;
    m_oneLine = false;
    if (m_state == State::Paused && !line.value.isValid())
        return resume();
    return runFrom(line.value.isValid() ? line.value.toUInt() : 0);
}

// Whether a run may start; the reply holds the line to start from, from 0, or no value for none.
Reply Program::mayStart(const QVariant &payload) const
{
    if (m_state == State::Running)
        return wrongState("the program runs");
    if (const Reason why = m_surroundings.hindrance(); !why.isEmpty())
        return refusedFor(WrongState, why, why.code);
    const QString key = QStringLiteral("line");
    if (!childAt(payload, key).isValid())
        return {};
    Reply wanted = checked(payload, {integer("line", 1, int(m_lines.size()))}, Missing::Refused);
    if (wanted.ok())
        wanted.value = childAt(wanted.value, key).toInt() - 1;
    return wanted;
}

// Ends a paused run and takes the robot.
Reply Program::takeRobot()
{
    if (m_name.isEmpty())
        return wrongState("no program is loaded");
    if (m_state == State::Paused)
        stop();
    Reply reply = setStage();
    return reply.ok() ? m_stage.robot.seize() : reply;
}

Reply Program::runFrom(size_t line)
{
    Reply reply = takeRobot();
    if (reply.ok())
        reply = setWeave(line);
    if (!reply.ok())
        return reply;
    m_stage.weld.abandon();
    m_stage.weld.resetTally();
    m_stage.seamLength = 0;
    m_seams = int(std::count_if(
        m_lines.begin() + std::ptrdiff_t(line), m_lines.end(),
        [](const tl::ParsedLine &each) { return each.word.text == QLatin1String("ArcOn"); }));
    m_alarms.forgetRun();
    forget();
    m_next = line;
    m_line = 0;
    m_ignored = 0;
    m_toldArcOn = -1;
    m_message.clear();
    m_result = result({});
    setState(State::Running);
    return {};
}

void Program::forget()
{
    m_instruction.reset();
    m_plan.clear();
    m_done.clear();
    m_goesBack = false;
}

Reply Program::setStage()
{
    Reply mode = m_context.load(names::weldMode);
    Reply running = m_context.load(names::runningParam);
    if (!mode.ok() || !running.ok())
        return mode.ok() ? running : mode;
    m_mode = childAt(mode.value, QStringLiteral("mode")).toString();
    const bool real = m_mode == QLatin1String(schema::weldmode::real);
    const bool tests = !real && m_mode != QLatin1String(schema::weldmode::simulation);
    const QVariant speed = childAt(running.value, QStringLiteral("test_run_speed"));
    m_stage.dry = !real;
    m_stage.arc = real ? Weld::Arc::Real : tests ? Weld::Arc::None : Weld::Arc::Simulated;
    m_stage.dryRunSpeed = tests ? (speed.isValid() ? speed.toDouble() : defaultDryRunSpeed) : 0;
    m_isDry = false;
    return {};
}

// Sets the weave that the lines before @p line leave on.
Reply Program::setWeave(size_t line)
{
    QString file;
    for (size_t i = 0; i < line; ++i) {
        if (m_lines[i].is(tl::Word::WeaveOn) && m_lines[i].problems.isEmpty())
            file = *m_lines[i].files[0];
        else if (m_lines[i].is(tl::Word::WeaveOff))
            file.clear();
    }
    m_stage.weave.reset();
    return file.isEmpty() ? Reply{} : readWeave(m_context, file, &m_stage.weave);
}

Reply Program::resume()
{
    Reply reply = m_isDry ? setStage() : Reply{};
    if (reply.ok() && m_instruction)
        reply = m_instruction->resume(m_stage);
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
    if (m_state == State::Idle) // other motions must stop as well
        end(State::Idle, m_result.value(endKey).toString(), m_message);
    else
        end(State::Idle, QStringLiteral("stopped"), QStringLiteral("stopped"));
    return {};
}

void Program::step()
{
    const Reason hindered = m_surroundings.hindrance();
    if (m_stage.robot.takeStop() || pauseIfAlone())
        pause();
    else if (!hindered.isEmpty())
        fail(hindered, hindered.code);
    else if (!m_stage.weld.alarm().isEmpty())
        endFor(m_stage.weld.alarm().code); // the subsystem that ended the weld has raised the alarm
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
    if (!ended->ok())
        return fail(*ended);
    if (!std::exchange(m_goesBack, false))
        m_done.push_back({m_stage.line, m_instruction->undo(), m_weaveBefore});
    if (m_done.size() > stepsKept)
        m_done.pop_front();
    m_instruction.reset();
    endLine();
}

void Program::beginNext()
{
    if (!m_plan.empty()) {
        PlannedStep step = std::move(m_plan.front());
        m_plan.pop_front();
        return beginLine(step.line, std::move(step.instruction));
    }
    m_next = nextCode(m_next);
    if (m_next == m_lines.size())
        return finish();
    const size_t line = m_next++;
    beginLine(line, nullptr);
}

size_t Program::nextCode(size_t line) const
{
    while (line < m_lines.size() && !m_lines[line].hasCode())
        ++line;
    return line;
}

void Program::beginLine(size_t index, std::unique_ptr<ProgramInstruction> instruction)
{
    const tl::ParsedLine &line = m_lines[index];
    m_stage.line = index;
    m_line = int(index) + 1;
    m_weaveBefore = m_stage.weave;
    m_alarms.setPlace({m_name, m_line, m_user});
    if (!line.instruction)
        return ignore(line, "is unknown");
    if (!line.problems.isEmpty())
        return fail({QStringLiteral("bad_arguments"), {line.word.text}},
                    line.problems.first().english());
    tellMissingArc(index);
    m_instruction = instruction ? std::move(instruction) : makeInstruction(line);
    if (!m_instruction)
        return ignore(line, "is not carried out");
    const Reply begun = m_instruction->begin(m_stage);
    if (begun.ok())
        stepInstruction();
    else
        fail(begun);
}

// After a step, the next line becomes the present one.
void Program::endLine()
{
    if (!m_oneLine)
        return;
    m_next = nextCode(m_next);
    if (m_next == m_lines.size())
        return finish();
    m_line = int(m_next) + 1;
    pause();
}

void Program::finish()
{
    QString message = QStringLiteral("finished");
    if (m_ignored > 0)
        message += QStringLiteral(", lines ignored: %1").arg(m_ignored);
    if (m_stage.weld.isWelding())
        message += QStringLiteral(", the arc was still on");
    end(State::Idle, QStringLiteral("finished"), message);
}

void Program::ignore(const tl::ParsedLine &line, const char *why)
{
    if (++m_ignored == 1) // one alarm stands for all ignored lines
        m_alarms.raise({QStringLiteral("line_ignored"), {line.word.text}});
    m_message = QStringLiteral("line %1: \"%2\" %3 and was ignored")
                    .arg(QString::number(m_line), line.word.text, QLatin1String(why));
    m_context.record(Event::Message, m_message);
    endLine();
}

// In manual mode a person stands beside the robot, who needs the pendant to stop it.
bool Program::pauseIfAlone()
{
    const bool alone =
        !m_surroundings.switches.automatic && m_surroundings.pendant.isGone(m_context.now());
    if (alone)
        m_alarms.raise({QStringLiteral("pendant_lost")});
    return alone;
}

void Program::fail(const Reply &reply)
{
    fail(reasonOf(reply), reply.text);
}

void Program::fail(const Reason &reason, const QString &text)
{
    m_alarms.raise(reason);
    endFor(text);
}

void Program::endFor(const QString &text)
{
    end(State::Error, QStringLiteral("failed"),
        QStringLiteral("line %1: %2").arg(m_line).arg(text));
    m_context.record(Event::Alarm, m_message);
}

void Program::end(State state, const QString &word, const QString &message)
{
    m_result = result(word);
    m_stage.track.breakOff(m_stage.weld.process());
    m_stage.weld.abandon();
    m_stage.wireAndGas.stopProgram();
    m_stage.robot.yield();
    forget();
    m_message = message;
    m_alarms.setPlace({});
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
            {QStringLiteral("message"), m_message},
            {QStringLiteral("result"), m_result},
            {QStringLiteral("reweld"), reweldMap()},
            {QStringLiteral("stepped"), m_isDry}};
}

QVariantMap Program::reweldMap() const
{
    const auto told = [](double mm) { return std::round(mm * 10) / 10; };
    const SeamTrack::Gap *gap = m_stage.track.gap();
    const bool isOver = m_state == State::Idle || m_state == State::Error;
    if (!gap || !isOver)
        return {{QStringLiteral("line"), 0}};
    const int line = int(gap->legs[gap->legAt(gap->from())].line) + 1;
    return {{QStringLiteral("line"), line},
            {QStringLiteral("lost"), told(gap->lost)},
            {QStringLiteral("from"), told(gap->from())}};
}

QVariantMap Program::result(const QString &end) const
{
    QVariantList faults = m_alarms.ofRun();
    faults.erase(std::remove_if(faults.begin(), faults.end(),
                                [](const QVariant &fault) {
                                    return childAt(fault, QStringLiteral("code"))
                                        == QLatin1String("line_ignored");
                                }),
                 faults.end());
    const Weld &weld = m_stage.weld;
    return {{endKey, end},
            {QStringLiteral("faults"), faults},
            {QStringLiteral("seams"), weld.tally().seams},
            {QStringLiteral("seams_of"), m_seams},
            {QStringLiteral("welded"), std::round(weld.tally().welded * 10) / 10},
            {QStringLiteral("length"), std::round(m_stage.seamLength * 10) / 10},
            {QStringLiteral("arc_seconds"), std::round(weld.tally().arcMinutes * 600) / 10},
            {QStringLiteral("wire"), std::round(weld.tally().wire * 1000) / 1000},
            {QStringLiteral("ignored"), m_ignored},
            {QStringLiteral("arc_on"), weld.isWelding()},
            {QStringLiteral("mode"), m_mode}};
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
