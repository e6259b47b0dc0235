#include "controller/controller.h"

#include <algorithm>

#include "controller/core/alarms.h"
#include "controller/core/json.h"
#include "controller/files/options.h"
#include "controller/files/parameterfiles.h"
#include "controller/files/releases.h"
#include "controller/program/cellstate.h"
#include "controller/program/program.h"
#include "controller/robot/jogging.h"
#include "controller/robot/project.h"
#include "controller/robot/robot.h"
#include "controller/welding/weld.h"
#include "controller/welding/welder.h"
#include "controller/welding/welderstate.h"
#include "controller/welding/weldmode.h"
#include "controller/welding/wireandgas.h"
#include "schema/names.h"

namespace welmo::controller {

namespace {

constexpr int journalLength = 200; // entries of the journal that its node shows
constexpr int largestProjectList = 256 * 1024; // some thousand points

} // namespace

Controller::Controller(Store &store, Faults &faults, Journal &journal, const Clock &clock)
    : m_context(store, faults, journal, clock)
{
    auto &alarms = add<Alarms>();
    m_alarms = &alarms;
    add<ParameterFiles>();
    m_releases = &add<Releases>();
    add<Options>();
    add<WeldMode>();
    const Welder &welder = add<Welder>();
    Weld &weld = add<Weld>(welder, alarms);
    WireAndGas &wireAndGas = add<WireAndGas>(welder, weld, m_hold);
    add<Project>();
    m_registry.setLargest(names::project, largestProjectList);
    Robot &robot = add<Robot>(m_surroundings);
    add<Jogging>(robot, m_hold);
    const Program &program = add<Program>(weld, wireAndGas, robot, alarms, m_surroundings);
    add<WelderState>(welder, weld);
    add<CellState>(program, weld, welder, wireAndGas, alarms, m_surroundings);
    m_registry.addValue(names::journal, [&journal] {
        return Reply::with(QVariantMap{{QStringLiteral("entries"), journal.recent(journalLength)}});
    });
    m_registry.addValue(names::cellIdentity, [&store] {
        return Reply::with(QVariantMap{{QStringLiteral("store"), store.identity()},
                                       {QStringLiteral("bound"), true}});
    });
    m_registry.addEntries(names::audit,
                          [this](const QString &key) { return m_context.audit().page(key); }, {});
}

Controller::~Controller() = default;

template<typename T, typename... Args>
T &Controller::add(Args &...others)
{
    auto subsystem = std::make_unique<T>(m_context, m_registry, others...);
    T &result = *subsystem;
    m_subsystems.push_back(std::move(subsystem));
    return result;
}

Reply Controller::start()
{
    if (!m_context.audit().start())
        return Reply::refused(StorageFailed, QStringLiteral("the audit journal cannot be read"));
    m_complaints = m_context.complaints();
    for (const auto &subsystem : m_subsystems) {
        if (Reply reply = subsystem->start(); !reply.ok())
            return reply;
    }
    tellComplaints();
    return {};
}

void Controller::tellComplaints()
{
    for (const QString &line : qAsConst(m_complaints)) {
        m_context.record(Journal::Event::Alarm, line);
        const Reason reason{QStringLiteral("storage_damaged"), {line}};
        if (!m_alarms->isOpen(reason)) // open since an earlier start
            m_alarms->raise(reason);
    }
}

Reply Controller::handle(const Request &request)
{
    tick();
    if (const int code = m_context.faults().takeCode(request.path))
        return Reply::refused(code, QStringLiteral("a switched fault"));
    if (!isPlain(request.payload))
        return Reply::refused(BadPayload, QStringLiteral("the payload is no plain value"));
    if (Reply conflict = m_context.audit().conflict(request); !conflict.ok())
        return conflict;
    if (Reply refusal = m_releases->refusal(request); !refusal.ok())
        return refusal;
    m_context.audit().setAuthor(request.author);
    Reply reply = m_registry.dispatch(request);
    m_context.audit().setAuthor({});
    if (request.kind == Request::Kind::Set || request.kind == Request::Kind::Command)
        tick(); // notifies watchers of what the request changed
    if (reply.ok() && !request.key.isEmpty() && request.kind != Request::Kind::Command)
        reply.revision = m_context.revision(request.path, request.key);
    return reply;
}

void Controller::tick()
{
    for (const auto &subsystem : m_subsystems)
        subsystem->tick();
}

bool Controller::isBusy() const
{
    return std::any_of(m_subsystems.begin(), m_subsystems.end(),
                       [](const auto &subsystem) { return subsystem->isBusy(); });
}

int Controller::paceMs() const
{
    int pace = Subsystem().paceMs();
    for (const auto &subsystem : m_subsystems) {
        if (subsystem->isBusy())
            pace = std::min(pace, subsystem->paceMs());
    }
    return pace;
}

void Controller::beat(qint64 time, const QVector<int> &presses)
{
    tick(); // stops what is overdue, before this beat counts
    m_hold.beat(time, presses);
    m_surroundings.pendant.beat(time);
    tick();
}

void Controller::losePendant()
{
    m_hold.losePendant();
    tick();
}

} // namespace welmo::controller
