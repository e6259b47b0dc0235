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

/// The controller's side of the embedded link: one pendant in front of a runner, on the link's
/// thread, where everything here is called. A session is what the two sides agreed on since the
/// link was last set up; what belongs to an earlier one is thrown away.
class EmbeddedServer : public QObject
{
    Q_OBJECT
public:
    /// @p dataFolder empty: the store is in memory. Faults and journal are borrowed.
    EmbeddedServer(const QString &dataFolder, controller::Faults &faults,
                   controller::Journal &journal, const controller::Clock &clock);
    ~EmbeddedServer() override;

    /// Asks for a session; greeted() is the answer, if there is one.
    void greet(int session);
    /// Carries out the request and answers the call; not when the caller gave up before.
    void ask(int session, const std::shared_ptr<PendingCall> &call);
    /// See ControllerRunner::setExample().
    void setExample(bool wanted) { m_runner.setExample(wanted); }
    /// The session is over.
    void leave();
    /// What the user of the pendant may have carried out. Any thread.
    void setRole(Role role) { m_role = role; }
    /// Carries out what has become due; by itself while something goes on.
    void tick() { m_runner.tick(); }

    /// The pendant of the session is alive, see tessa::ControllerLink::beat(). Any thread; costs
    /// next to nothing and never queues: a slow server finds the newest beat only.
    void beat(int session, const QVector<int> &presses);

signals:
    void greeted(int session);
    void broken(int session);
    void notified(int session, const QString &path, const QVariant &values);
    /// Why there is no controller; once for each reason and leave().
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
    std::optional<Beat> m_beat; // not looked at yet
};

} // namespace welmo::links
