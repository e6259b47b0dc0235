#include <utility>

#include "controller/core/fields.h"
#include "controller/program/program.h"
#include "controller/robot/robot.h"
#include "tl/sequence.h"

// The steps of a program line by line, and of welding a seam again.

namespace welmo::controller {

Reply Program::stepOne(const QVariant &payload)
{
    Reply line = mayStart(payload);
    if (!line.ok())
        return line;
    if (!m_plan.empty())
        return Reply::refused(WrongState, QStringLiteral("a seam is being welded again"));
    if (childAt(payload, QStringLiteral("back")).toBool())
        return stepBack();
    if (m_state != State::Paused) {
        Reply reply = runFrom(line.value.toUInt());
        if (reply.ok())
            makeDry();
        return reply;
    }
    makeDry();
    Reply reply = m_instruction ? m_instruction->resume(m_stage) : Reply{};
    if (reply.ok())
        setState(State::Running);
    return reply;
}

void Program::makeDry()
{
    m_stage.track.breakOff(m_stage.weld.process());
    m_stage.weld.abandon();
    m_stage.dry = true;
    m_stage.arc = Weld::Arc::None;
    m_isDry = m_oneLine = true;
}

void Program::tellMissingArc(size_t line)
{
    const bool strikes = m_stage.arc == Weld::Arc::Real;
    if (!strikes || !m_lines[line].isWeldMove() || m_stage.weld.hasSeam())
        return;
    const int arcOn =
        tl::arcOnBefore(int(line), [this](int before) { return m_lines[size_t(before)]; });
    if (arcOn >= 0 && std::exchange(m_toldArcOn, arcOn) != arcOn)
        m_alarms.raise({QStringLiteral("no_arc_on"), {arcOn + 1}});
}

Reply Program::stepBack()
{
    if (m_state != State::Paused || (!m_instruction && m_done.empty()))
        return refusedFor(WrongState, {QStringLiteral("nothing_before")},
                          QStringLiteral("there is no step before"));
    makeDry();
    if (!m_goesBack) {
        if (m_instruction)
            m_done.push_back({m_stage.line, m_instruction->undo(), m_weaveBefore});
        takeBack();
    }
    if (m_instruction)
        setState(State::Running);
    return {};
}

void Program::takeBack()
{
    Done last = std::move(m_done.back());
    m_done.pop_back();
    m_stage.weave = last.weave;
    m_next = last.line;
    m_line = int(last.line) + 1;
    m_instruction = std::move(last.undo);
    m_goesBack = m_instruction != nullptr;
    if (m_instruction)
        m_instruction->begin(m_stage); // a travel is never refused
}

Reply Program::reweld()
{
    const SeamTrack::Gap *gap = m_stage.track.gap();
    if (!gap || m_state == State::Paused)
        return refusedFor(WrongState, {QStringLiteral("nothing_to_reweld")},
                          QStringLiteral("no seam lacks its arc"));
    Reply reply = mayStart({});
    if (reply.ok())
        reply = takeRobot();
    if (reply.ok())
        reply = setWeave(gap->legs[gap->legAt(gap->from())].line);
    if (!reply.ok())
        return reply;
    forget();
    m_alarms.forgetRun();
    m_plan = reweldSteps(*gap, m_lines);
    m_next = resumeAt(*gap, m_lines);
    m_stage.weld.expectAgain(gap->lost - gap->from());
    m_stage.track.reopen();
    m_oneLine = false;
    m_message.clear();
    setState(State::Running);
    return {};
}

} // namespace welmo::controller
