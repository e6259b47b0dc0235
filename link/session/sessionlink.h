#pragma once

#include <QTimer>
#include <memory>

#include "link/session/pendingcall.h"
#include "tessa/controllerlink.h"
#include "tessa/notificationqueue.h"

namespace welmo::links {

/// Base of the links: one session at a time with a server on another thread. A link that is down
/// asks for a new session until close(); subscriptions must be made again then.
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
    // Requests to the server; each returns at once.
    virtual void greet(int session) = 0;
    virtual void ask(int session, const std::shared_ptr<PendingCall> &call, int timeoutMs) = 0;
    virtual void leave() = 0;
    virtual void beatOn(int session, const QVector<int> &presses) = 0;

    // Answers of the server, on the GUI thread; notifications come on any thread.
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
