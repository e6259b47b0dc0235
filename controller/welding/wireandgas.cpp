#include "controller/welding/wireandgas.h"

#include <algorithm>
#include <limits>

#include "controller/core/fields.h"
#include "controller/core/reason.h"
#include "controller/files/options.h"
#include "controller/welding/weld.h"
#include "controller/welding/welder.h"
#include "schema/names.h"

using Fault = welmo::controller::Faults::Fault;
using Event = welmo::controller::Journal::Event;

namespace welmo::controller {

namespace {

const QString program = QStringLiteral("program");
constexpr qint64 untilStopped = std::numeric_limits<qint64>::max();

} // namespace

WireAndGas::WireAndGas(ControllerContext &context, Registry &registry, const Welder &welder,
                       const Weld &weld, HoldToRun &hold)
    : m_context(context)
    , m_welder(welder)
    , m_weld(weld)
    , m_hold(hold)
{
    registry.addCommand(names::wireFeed,
                        [this](const Request &request) { return moveWire(request); });
    registry.addCommand(names::gasFlow, [this](const Request &) { return testGas(); });
}

int WireAndGas::paceMs() const
{
    return m_wire == Wire::Still ? Subsystem::paceMs() : HoldToRun::paceMs;
}

void WireAndGas::tick()
{
    if (m_mover != program)
        stopWire(m_hold.failure(m_context.now(), m_press));
    if (m_welder.isInError()) {
        stopWire(QStringLiteral("welder error"));
        stopGas(QStringLiteral("welder error"));
    }
    if (m_weld.isWelding())
        stopWire(QStringLiteral("a weld"));
    if (m_context.suffers(Fault::WireStuck))
        stopWire(QStringLiteral("wire stuck"));
    if (m_context.suffers(Fault::NoGas))
        stopGas(QStringLiteral("no gas"));
    if (m_context.now() >= m_gasEnd)
        stopGas(QStringLiteral("end of the test"));
}

Reply WireAndGas::moveWire(const Request &request)
{
    const bool back = request.key == names::wireFeelBackPayload;
    if (!back && request.key != names::wireFeelPayload)
        return Reply::refused(BadPayload, QStringLiteral("no payload of the name ") + request.key);
    const char *child = back ? "reverse" : "feed";
    Reply wanted = checked(request.payload, {boolean(child)}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    if (childAt(wanted.value, QString::fromLatin1(child)).toBool())
        return startByKey(back ? Wire::Retracting : Wire::Feeding, request.key);
    if (m_mover == request.key)
        stopWire(request.key);
    return {};
}

Reply WireAndGas::startByKey(Wire direction, const QString &key)
{
    if (m_mover == key)
        return {};
    int press = 0;
    const Reply held = m_hold.start(m_context.now(), &press);
    Reply reply = mayMove();
    if (reply.ok())
        reply = held;
    if (reply.ok()) {
        m_press = press;
        setMoving(direction, key);
    }
    return reply;
}

Reply WireAndGas::moveByProgram(Wire direction)
{
    Reply reply = mayMove();
    if (reply.ok())
        setMoving(direction, program);
    return reply;
}

Reply WireAndGas::mayMove() const
{
    if (m_welder.isInError())
        return refusedFor(WrongState, {QStringLiteral("welder_error")},
                          QStringLiteral("the welder reports an error"));
    if (m_weld.isWelding())
        return Reply::refused(WrongState, QStringLiteral("a weld needs the wire"));
    if (m_context.suffers(Fault::WireStuck))
        return Reply::refused(WireStuck, QStringLiteral("the wire is stuck"));
    if (m_wire != Wire::Still)
        return Reply::refused(WrongState, QStringLiteral("the wire is moved by ") + m_mover);
    return {};
}

void WireAndGas::setMoving(Wire direction, const QString &mover)
{
    m_wire = direction;
    m_mover = mover;
    m_context.record(direction == Wire::Feeding ? Event::WireFeeds : Event::WireRetracts, mover);
}

// Does nothing without a cause, or if the wire stands still.
void WireAndGas::stopWire(const QString &cause)
{
    if (m_wire == Wire::Still || cause.isEmpty())
        return;
    m_wire = Wire::Still;
    m_mover.clear();
    m_context.record(Event::WireStops, cause);
}

Reply WireAndGas::flowByProgram()
{
    return startGas(untilStopped, program);
}

bool WireAndGas::runsForProgram() const
{
    return m_mover == program || m_gasEnd == untilStopped;
}

void WireAndGas::stopProgram()
{
    if (m_mover == program)
        stopWire(program);
    if (m_gasEnd == untilStopped)
        stopGas(program);
}

Reply WireAndGas::testGas()
{
    Reply seconds = gasDetectTime(m_context);
    if (!seconds.ok())
        return seconds;
    return startGas(m_context.now() + seconds.value.toLongLong() * 1000, names::gasFlow);
}

Reply WireAndGas::startGas(qint64 end, const QString &cause)
{
    if (m_welder.isInError())
        return refusedFor(WrongState, {QStringLiteral("welder_error")},
                          QStringLiteral("the welder reports an error"));
    if (m_context.suffers(Fault::NoGas))
        return Reply::refused(NoGas, QStringLiteral("there is no gas"));
    if (m_gasEnd == 0)
        m_context.record(Event::GasFlows, cause);
    m_gasEnd = std::max(m_gasEnd, end);
    return {};
}

void WireAndGas::stopGas(const QString &cause)
{
    if (m_gasEnd == 0)
        return;
    m_gasEnd = 0;
    m_context.record(Event::GasStops, cause);
}

} // namespace welmo::controller
