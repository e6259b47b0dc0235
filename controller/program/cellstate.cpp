#include "controller/program/cellstate.h"

#include "controller/core/fields.h"
#include "controller/program/program.h"
#include "controller/welding/welder.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

const QString powerKey = QStringLiteral("power");
const QString automaticKey = QStringLiteral("automatic");
const QString faultKey = QStringLiteral("fault");

void take(const QVariant &payload, const QString &key, bool *value)
{
    const QVariant wanted = childAt(payload, key);
    if (wanted.isValid())
        *value = wanted.toBool();
}

} // namespace

CellState::CellState(ControllerContext &context, Registry &registry, const Program &program,
                     const Weld &weld, const Welder &welder, const Alarms &alarms,
                     Surroundings &surroundings)
    : m_context(context)
    , m_program(program)
    , m_weld(weld)
    , m_welder(welder)
    , m_alarms(alarms)
    , m_switches(surroundings.switches)
{
    registry.addValue(names::cellState, [this] { return Reply::with(node()); });
    registry.addCommand(names::switchCell,
                        [this](const Request &request) { return turn(request.payload); });
}

Reply CellState::start()
{
    m_told = word();
    return {};
}

QVariantMap CellState::node() const
{
    return {{QStringLiteral("state"), word()},
            {powerKey, m_switches.power},
            {automaticKey, m_switches.automatic},
            {faultKey, m_switches.fault}};
}

QString CellState::word() const
{
    if (m_switches.fault || m_welder.isInError() || (m_program.hasFailed() && m_alarms.anyOpen()))
        return QStringLiteral("fault");
    if (m_weld.isWelding())
        return QStringLiteral("welding");
    return m_program.isRunning() ? QStringLiteral("running") : QStringLiteral("idle");
}

Reply CellState::turn(const QVariant &payload)
{
    Reply wanted = checked(payload, {boolean("power"), boolean("automatic"), boolean("fault")},
                           Missing::Allowed);
    if (!wanted.ok())
        return wanted;
    take(wanted.value, powerKey, &m_switches.power);
    take(wanted.value, automaticKey, &m_switches.automatic);
    take(wanted.value, faultKey, &m_switches.fault);
    m_told = word();
    m_context.notify(names::cellState, node());
    return {};
}

void CellState::tick()
{
    const QString now = word();
    if (now == m_told)
        return;
    m_told = now;
    m_context.notify(names::cellState, QVariantMap{{QStringLiteral("state"), now}});
}

} // namespace welmo::controller
