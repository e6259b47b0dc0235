#pragma once

#include <memory>
#include <vector>

#include "controller/core/controllercontext.h"
#include "controller/core/holdtorun.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"
#include "controller/files/examplefiles.h"
#include "controller/robot/cellswitches.h"

namespace welmo::controller {

class Alarms;
class Releases;

/// The virtual robot controller: answers requests and tells what changed. A state machine without a
/// thread, a timer or a connection; its owner calls handle() and tick() from one thread.
class Controller
{
public:
    /// The controller keeps references to all of these; they must outlive it.
    Controller(Store &store, Faults &faults, Journal &journal, const Clock &clock);
    ~Controller();

    /// @p notify is called during handle() and tick(), for every node, watched or not.
    void setNotify(ControllerContext::Notify notify) { m_context.setNotify(std::move(notify)); }
    /// Writes what every store must hold, once for each store; to be called before everything else.
    Reply start();
    /// What start() found damaged in the store, a line each; each is an alarm as well.
    const QStringList &complaints() const { return m_complaints; }
    /// As addExampleFiles(); to be called before start().
    Reply fillWithExample() { return addExampleFiles(m_context); }
    Reply handle(const Request &request);
    /// See Registry::nodes().
    QMap<QString, Registry::Entries> nodes() const { return m_registry.nodes(); }
    /// Carries out what is due by the clock or because of a switched fault.
    void tick();
    /// True while something proceeds by itself; tick() is then to be called every paceMs().
    bool isBusy() const;
    int paceMs() const;

    /// A pendant was alive at @p time of the clock and held the keys of these presses; see
    /// HoldToRun. To be called every 25 ms while a key is held: what is held stops at most 100 ms
    /// after the last beat.
    void beat(qint64 time, const QVector<int> &presses);
    /// The session with the pendant has ended: what is held stops now.
    void losePendant();

private:
    template<typename T, typename... Args>
    T &add(Args &...others);
    void tellComplaints();

    QStringList m_complaints;
    ControllerContext m_context;
    Registry m_registry;
    HoldToRun m_hold;
    Surroundings m_surroundings;
    std::vector<std::unique_ptr<Subsystem>> m_subsystems;
    Alarms *m_alarms; // owned by m_subsystems
    Releases *m_releases; // owned by m_subsystems
};

} // namespace welmo::controller
