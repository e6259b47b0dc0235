#pragma once

#include <QMutex>
#include <QObject>
#include <QSet>
#include <atomic>
#include <memory>
#include <optional>

#include "link/session/controllerrunner.h"
#include "link/session/pendingcall.h"
#include "link/session/roles.h"

namespace welmo::links {

/// The controller's side of the embedded link: one pendant and a runner, on the link's thread, on
/// which all functions are called. Requests and beats of an earlier session are dropped.
class EmbeddedServer : public QObject
{
    Q_OBJECT
public:
    /// With an empty @p dataFolder the store is in memory. Faults and journal must outlive the
    /// server.
    EmbeddedServer(const QString &dataFolder, controller::Faults &faults,
                   controller::Journal &journal, const controller::Clock &clock);
    ~EmbeddedServer() override;

    /// Asks for a session; greeted() is emitted if there is one.
    void greet(int session);
    /// Carries out the request and answers the call, unless its caller has given up.
    void ask(int session, const std::shared_ptr<PendingCall> &call);
    /// See ControllerRunner::setExample().
    void setExample(bool wanted) { m_runner.setExample(wanted); }
    /// The session has ended.
    void leave();
    /// Sets which requests the pendant's user may make. Any thread.
    void setRole(Role role) { m_role = role; }
    /// Carries out what is due; called by timers while something proceeds.
    void tick() { m_runner.tick(); }

    /// The session's pendant is alive, see tessa::ControllerLink::beat(). Any thread. Beats do not
    /// queue: a slow server gets only the newest.
    void beat(int session, const QVector<int> &presses);

signals:
    void greeted(int session);
    void broken(int session);
    void notified(int session, const QString &path, const QVariant &values);
    /// Why there is no controller; emitted once for each reason until leave().
    void problem(const QString &line);

private:
    struct Beat
    {
        int session;
        qint64 time;
        QVector<int> presses;
    };

    tessa::LinkReply carryOut(const tessa::LinkRequest &request);
    void endSession();
    void takeBeat();

    ControllerRunner m_runner;
    int m_session = 0;
    QSet<QString> m_watched;
    std::atomic<Role> m_role{Role::Administrator};
    QMutex m_beatMutex;
    std::optional<Beat> m_beat; // not passed on yet
};

} // namespace welmo::links
