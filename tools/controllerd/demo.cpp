#include "tools/controllerd/demo.h"

#include <QRandomGenerator>

#include "schema/names.h"
#include "schema/weldmode.h"

namespace names = welmo::names;
using welmo::controller::Faults;
using welmo::controller::Request;

namespace controllerd {

namespace {

constexpr int shortestRestMs = 2000;
constexpr int longestRestMs = 12000;
constexpr int oneFailsOf = 8; // runs
constexpr Faults::Fault faults[]{Faults::Fault::NoGas, Faults::Fault::NoArc,
                                 Faults::Fault::ArcBreaks, Faults::Fault::WireStuck};

int random(int below)
{
    return QRandomGenerator::global()->bounded(below);
}

} // namespace

Demo::Demo(welmo::links::CellService *service, QVector<Program> programs)
    : m_service(service)
    , m_programs(std::move(programs))
    , m_runs(random(m_programs.size()))
{
    connect(service, &welmo::links::CellService::started, this, &Demo::begin);
    connect(service, &welmo::links::CellService::notified, this, &Demo::onNews);
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &Demo::run);
}

void Demo::begin()
{
    command(names::switchCell, {{QStringLiteral("automatic"), true}});
    command(names::setWeldMode,
            {{QStringLiteral("mode"), QLatin1String(welmo::schema::weldmode::real)}});
    rest();
}

void Demo::onNews(const QString &path, const QVariant &values)
{
    const QString state = values.toMap().value(QStringLiteral("state")).toString();
    if (path != names::programState || state.isEmpty())
        return;
    const bool wasRunning = std::exchange(m_state, state) == QLatin1String("running");
    if (wasRunning && state != QLatin1String("running"))
        rest();
}

void Demo::rest()
{
    m_next.start(shortestRestMs + random(longestRestMs - shortestRestMs));
}

void Demo::run()
{
    Faults &failing = *m_service->faults();
    for (const Faults::Fault fault : faults)
        failing.set(fault, false);
    if (random(oneFailsOf) == 0)
        failing.set(faults[random(int(std::size(faults)))], true);
    const Program &program = m_programs.at(m_runs++ % m_programs.size());
    command(names::acknowledgeAlarms);
    command(names::loadProgram,
            {{QStringLiteral("name"), program.name}, {QStringLiteral("text"), program.text}});
    command(names::runProgram);
    m_service->tick(); // from here on it proceeds by itself
}

void Demo::command(const QString &name, const QVariantMap &payload)
{
    m_service->handle({Request::Kind::Command, name, {}, payload});
}

} // namespace controllerd
