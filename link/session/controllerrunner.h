#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "controller/controller.h"

namespace welmo::links {

/// Runs a controller: its store, its pace, and the simulated faults of its answers. All functions
/// are called on its thread; sessions and pendants are its owner's matter.
class ControllerRunner : public QObject
{
    Q_OBJECT
public:
    using Work = std::function<void()>;

    /// With an empty @p dataFolder the store is in memory. Faults and journal must outlive the
    /// runner.
    ControllerRunner(QString dataFolder, controller::Faults &faults, controller::Journal &journal,
                     controller::Clock clock, QObject *parent = nullptr);
    ~ControllerRunner() override;

    /// The store's file in a data folder.
    static QString storeIn(const QString &dataFolder);

    /// A controller without parameter files gets those of the examples; to be set before isReady().
    void setExample(bool wanted) { m_example = wanted; }
    /// Opens the store and starts the controller, unless it runs already; false if that fails, with
    /// problem() emitted.
    bool isReady();
    /// A reason that was reported before will be reported again.
    void forgetProblem() { m_reported.clear(); }
    /// Null until isReady() was true.
    controller::Controller *controller() { return m_controller.get(); }
    /// The store's identity; empty until isReady() was true.
    QString storeIdentity() const;
    bool isReachable() const { return !m_faults.isOn(controller::Faults::Fault::LinkDown); }
    qint64 now() const { return m_clock(); }

    /// Calls @p deliver, which passes on an answer, at once, late or never, as the faults demand;
    /// @p drop is called instead if the link breaks before.
    void answer(Work deliver, Work drop = {});
    /// @p work is called before each tick, to pass on what came from other threads.
    void setBeforeTick(Work work) { m_beforeTick = std::move(work); }
    /// Carries out what is due; called by timers while something proceeds.
    void tick();

signals:
    /// See controller::Controller::setNotify().
    void notified(const QString &path, const QVariant &values);
    /// A fault took the link down.
    void broken();
    /// Why there is no controller; emitted once for each reason.
    void problem(const QString &line);

private:
    struct Answer
    {
        qint64 due;
        Work deliver;
        Work drop;
    };

    QString startController();
    void deliverDue();
    void breakOff();
    void onFaultsChanged();

    QString m_dataFolder;
    controller::Faults &m_faults;
    controller::Journal &m_journal;
    controller::Clock m_clock;
    std::unique_ptr<controller::Store> m_store;
    std::unique_ptr<controller::Controller> m_controller;
    bool m_example = false;
    QString m_reported;
    std::vector<Answer> m_late;
    Work m_beforeTick;
    QTimer m_ticks;
};

} // namespace welmo::links
