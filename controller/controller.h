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

/// The virtual robot controller: answers requests, and tells what changed. A state machine without
/// a thread, a timer or a connection; who owns it calls handle() and tick() from one thread.
class Controller
{
public:
    /// Everything is borrowed and must outlive the controller.
    Controller(Store &store, Faults &faults, Journal &journal, const Clock &clock);
    ~Controller();

    /// Called during handle() and tick(), for every node, watched or not.
    void setNotify(ControllerContext::Notify notify) { m_context.setNotify(std::move(notify)); }
    /// Writes what every store has to hold, once in its life; comes before everything else.
    Reply start();
    /// What start() found damaged in the store, a line each; each one is an alarm, too.
    const QStringList &complaints() const { return m_complaints; }
    /// As addExampleFiles(); comes before start().
    Reply fillWithExample() { return addExampleFiles(m_context); }
    Reply handle(const Request &request);
    /// As of Registry::nodes().
    QMap<QString, Registry::Entries> nodes() const { return m_registry.nodes(); }
    /// Carries out what has become due by the clock, or by a fault that was switched.
    void tick();
    /// True while something goes on by itself: then tick() is wanted every paceMs().
    bool isBusy() const;
    int paceMs() const;

    /// A pendant was alive at @p time of the clock, with the keys of these presses held; see
    /// HoldToRun. Wanted every 25 ms: what is held stops at most 100 ms after the last one.
    void beat(qint64 time, const QVector<int> &presses);
    /// The session with the pendant is over: what is held stops now.
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
    std::vector<std::unique_ptr<Subsystem>> m_units;
    Alarms *m_alarms; // one of the units
};

} // namespace welmo::controller
