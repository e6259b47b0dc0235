#pragma once

#include <QTimer>
#include <memory>

#include "link/session/pendingcall.h"
#include "tessa/controllerlink.h"
#include "tessa/notificationqueue.h"

namespace welmo::links {

/// What every link has in common: one session at a time with a server that lives on another
/// thread. A link that went down asks for a new session, again and again, until close(); nothing is
/// subscribed then until it is asked for again.
class SessionLink : public tessa::ControllerLink
{
    Q_OBJECT
public:
    /// Asks for a session every @p retryMs until there is one.
    explicit SessionLink(int retryMs, QObject *parent = nullptr);

    tessa::LinkReply call(const tessa::LinkRequest &request, int timeoutMs) override;
    void open() override;
    void close() override;
    bool isUp() const override { return m_state == State::Up; }
    void beat(const QVector<int> &presses) override;

protected:
    // The way to the server; each returns at once.
    virtual void greet(int session) = 0;
    virtual void ask(int session, const std::shared_ptr<PendingCall> &call, int timeoutMs) = 0;
    virtual void leave() = 0;
    virtual void beatOn(int session, const QVector<int> &presses) = 0;

    // What comes back; on the GUI thread, the notifications on any.
    void onGreeted(int session);
    void onBroken(int session);
    void take(const QString &path, const QVariant &values) { m_queue.push(path, values); }

private:
    enum class State { Closed, Connecting, Up };

    void goDown(State next);
    void onDelivered(const QString &path, const QVariant &values);

    tessa::NotificationQueue m_queue;
    QTimer m_retry;
    State m_state = State::Closed;
    int m_session = 0;
};

} // namespace welmo::links
