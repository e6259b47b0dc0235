#include "controller/program/cellstate.h"

#include "controller/core/fields.h"
#include "controller/program/program.h"
#include "controller/welding/welder.h"
#include "controller/welding/wireandgas.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

const QString powerKey = QStringLiteral("power");
const QString automaticKey = QStringLiteral("automatic");
const QString checksKey = QStringLiteral("checks");
const QString faultKey = QStringLiteral("fault");

void take(const QVariant &payload, const QString &key, bool *value)
{
    const QVariant wanted = childAt(payload, key);
    if (wanted.isValid())
        *value = wanted.toBool();
}

} // namespace

CellState::CellState(ControllerContext &context, Registry &registry, const Program &program,
                     const Weld &weld, const Welder &welder, const WireAndGas &wireAndGas,
                     const Alarms &alarms, Surroundings &surroundings)
    : m_context(context)
    , m_program(program)
    , m_weld(weld)
    , m_welder(welder)
    , m_wireAndGas(wireAndGas)
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
    m_toldChecks = checks();
    m_toldFlows = flows();
    return {};
}

QVariantMap CellState::node() const
{
    QVariantMap map = flows();
    map.insert(QStringLiteral("state"), word());
    map.insert(powerKey, m_switches.power);
    map.insert(automaticKey, m_switches.automatic);
    map.insert(faultKey, m_switches.fault);
    map.insert(checksKey, checks());
    return map;
}

// Gas and wire, whether a key, a program line or a weld moves them.
QVariantMap CellState::flows() const
{
    using Wire = WireAndGas::Wire;
    const Wire wire = m_wireAndGas.wire();
    const char *word = wire == Wire::Retracting          ? "retracting"
        : wire == Wire::Feeding || m_weld.consumesWire() ? "feeding"
                                                         : "still";
    return {{QStringLiteral("gas"), m_wireAndGas.gasFlows() || m_weld.consumesGas()},
            {QStringLiteral("wire"), QString::fromLatin1(word)}};
}

QVariantMap CellState::checks() const
{
    using Fault = Faults::Fault;
    const auto isWell = [this](Fault fault) { return !m_context.suffers(fault); };
    return {{QStringLiteral("gas"), isWell(Fault::NoGas)},
            {QStringLiteral("wire_moves"), isWell(Fault::WireStuck)},
            {QStringLiteral("wire_free"), isWell(Fault::WireSticks)},
            {QStringLiteral("strikes"), isWell(Fault::NoArc)},
            {QStringLiteral("burns"), isWell(Fault::ArcBreaks)},
            {QStringLiteral("storage"), isWell(Fault::DiskFull)}};
}

QString CellState::word() const
{
    if (m_switches.fault || m_welder.isInError() || (m_program.hasFailed() && m_alarms.anyOpen()))
        return QStringLiteral("fault");
    if (m_weld.isWelding())
        return QStringLiteral("welding");
    if (m_program.isPaused())
        return QStringLiteral("paused");
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
    const QVariantMap seen = checks();
    const QVariantMap flowing = flows();
    if (now == m_told && seen == m_toldChecks && flowing == m_toldFlows)
        return;
    m_told = now;
    m_toldChecks = seen;
    m_toldFlows = flowing;
    QVariantMap news = flowing;
    news.insert(QStringLiteral("state"), now);
    news.insert(checksKey, seen);
    m_context.notify(names::cellState, news);
}

} // namespace welmo::controller
