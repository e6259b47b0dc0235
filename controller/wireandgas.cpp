#include "controller/wireandgas.h"

#include "controller/fields.h"
#include "controller/names.h"
#include "controller/options.h"
#include "controller/welder.h"

using Fault = controller::Faults::Fault;
using Event = controller::Journal::Event;

namespace controller {

WireAndGas::WireAndGas(Cell &cell, Registry &registry, const Welder &welder)
    : m_cell(cell)
    , m_welder(welder)
{
    registry.addCommand(names::wireFeed,
                        [this](const Request &request) { return moveWire(request); });
    registry.addCommand(names::gasFlow, [this](const Request &) { return startGas(); });
}

void WireAndGas::tick()
{
    if (m_welder.isInError()) {
        stopWire(QStringLiteral("welder error"));
        stopGas(QStringLiteral("welder error"));
    }
    if (m_cell.suffers(Fault::WireStuck))
        stopWire(QStringLiteral("wire stuck"));
    if (m_cell.suffers(Fault::NoGas))
        stopGas(QStringLiteral("no gas"));
    if (m_cell.now() >= m_gasEnd)
        stopGas(QStringLiteral("end of the test"));
}

Reply WireAndGas::moveWire(const Request &request)
{
    const bool back = request.key == names::wireFeelBackPayload;
    if (!back && request.key != names::wireFeelPayload)
        return Reply::refused(BadPayload, QStringLiteral("no payload of the name ") + request.key);
    const char *key = back ? "reverse" : "feed";
    const Reply wanted = checked(request.payload, {boolean(key)}, Missing::Refused);
    if (!wanted.ok())
        return wanted;
    const Wire direction = back ? Wire::Retracting : Wire::Feeding;
    if (childAt(wanted.value, QString::fromLatin1(key)).toBool())
        return startWire(direction, request.key);
    if (m_wire == direction)
        stopWire(request.key);
    return {};
}

Reply WireAndGas::startWire(Wire direction, const QString &cause)
{
    if (m_welder.isInError())
        return Reply::refused(WrongState, QStringLiteral("the welder reports an error"));
    if (m_cell.suffers(Fault::WireStuck))
        return Reply::refused(WireStuck, QStringLiteral("the wire is stuck"));
    if (m_wire == direction)
        return {};
    if (m_wire != Wire::Still)
        return Reply::refused(WrongState, QStringLiteral("the wire moves the other way"));
    m_wire = direction;
    m_cell.record(direction == Wire::Feeding ? Event::WireFeeds : Event::WireRetracts, cause);
    return {};
}

void WireAndGas::stopWire(const QString &cause)
{
    if (m_wire == Wire::Still)
        return;
    m_wire = Wire::Still;
    m_cell.record(Event::WireStops, cause);
}

Reply WireAndGas::startGas()
{
    if (m_welder.isInError())
        return Reply::refused(WrongState, QStringLiteral("the welder reports an error"));
    if (m_cell.suffers(Fault::NoGas))
        return Reply::refused(NoGas, QStringLiteral("there is no gas"));
    const Reply seconds = gasDetectTime(m_cell);
    if (!seconds.ok())
        return seconds;
    if (m_gasEnd == 0)
        m_cell.record(Event::GasFlows, names::gasFlow);
    m_gasEnd = m_cell.now() + seconds.value.toInt() * 1000;
    return {};
}

void WireAndGas::stopGas(const QString &cause)
{
    if (m_gasEnd == 0)
        return;
    m_gasEnd = 0;
    m_cell.record(Event::GasStops, cause);
}

} // namespace controller
