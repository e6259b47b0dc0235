#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "controller/controller.h"

namespace welmo::links {

/// A controller at work: its store, the pace at which it runs, and what can go wrong on the way of
/// its answers. Everything is called on the thread that it lives on; who stands in front of it
/// knows of sessions and pendants.
class ControllerRunner : public QObject
{
    Q_OBJECT
public:
    using Work = std::function<void()>;

    /// @p dataFolder empty: the store is in memory. Faults and journal are borrowed.
    ControllerRunner(QString dataFolder, controller::Faults &faults, controller::Journal &journal,
                     controller::Clock clock, QObject *parent = nullptr);
    ~ControllerRunner() override;

    /// The file of the store in a data folder.
    static QString storeIn(const QString &dataFolder);

    /// A controller without parameter files gets those of the examples; before it is ready.
    void setExample(bool wanted) { m_example = wanted; }
    /// Opens the store and starts the controller, unless it runs already; false while that cannot
    /// be done, and problem() has told why.
    bool isReady();
    /// A reason that was told already is worth telling again.
    void forgetProblem() { m_reported.clear(); }
    /// Null until it was ready.
    controller::Controller *controller() { return m_controller.get(); }
    /// Of the store; empty until it was ready.
    QString storeIdentity() const;
    bool isReachable() const { return !m_faults.isOn(controller::Faults::Fault::LinkDown); }
    qint64 now() const { return m_clock(); }

    /// Lets @p deliver take an answer to who waits for it, at once, late or never, as the faults
    /// want it; @p drop is called instead when the link breaks before.
    void answer(Work deliver, Work drop = {});
    /// Called before each look at the clock: brings in what came from elsewhere.
    void setBeforeTick(Work work) { m_beforeTick = std::move(work); }
    /// Carries out what has become due; by itself while something goes on.
    void tick();

signals:
    /// As of controller::Controller::setNotify().
    void notified(const QString &path, const QVariant &values);
    /// The link went down by a fault.
    void broken();
    /// Why there is no controller; once for each reason.
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
