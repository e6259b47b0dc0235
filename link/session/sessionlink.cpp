#include "link/session/sessionlink.h"

using tessa::LinkReply;
using tessa::LinkRequest;

namespace welmo::links {

SessionLink::SessionLink(int retryMs, QObject *parent)
    : ControllerLink(parent)
{
    m_retry.setInterval(retryMs);
    connect(&m_retry, &QTimer::timeout, this, [this] { greet(m_session); });
    connect(&m_queue, &tessa::NotificationQueue::delivered, this, &SessionLink::onDelivered);
}

LinkReply SessionLink::call(const LinkRequest &request, int timeoutMs)
{
    if (!isUp())
        return {LinkReply::NotConnected, {}};
    const auto call = std::make_shared<PendingCall>(request);
    ask(m_session, call, timeoutMs);
    LinkReply reply = call->wait(timeoutMs);
    if (!reply.fromController())
        goDown(State::Connecting);
    return reply;
}

void SessionLink::open()
{
    if (m_state != State::Closed)
        return;
    m_state = State::Connecting;
    ++m_session;
    m_retry.start();
    greet(m_session);
}

void SessionLink::close()
{
    goDown(State::Closed);
    leave();
}

void SessionLink::beat(const QVector<int> &presses)
{
    if (isUp())
        beatOn(m_session, presses);
}

// No slot may run in here, since a call to the controller may be waiting.
void SessionLink::goDown(State next)
{
    const bool wasUp = isUp();
    m_state = next;
    ++m_session;
    if (next == State::Connecting)
        m_retry.start();
    else
        m_retry.stop();
    if (wasUp)
        QMetaObject::invokeMethod(
            this, [this] { emit upChanged(false); }, Qt::QueuedConnection);
}

void SessionLink::onGreeted(int session)
{
    if (m_state != State::Connecting || session != m_session)
        return;
    m_state = State::Up;
    m_retry.stop();
    m_queue.clear(); // notifications of an earlier session
    emit upChanged(true);
}

void SessionLink::onBroken(int session)
{
    if (isUp() && session == m_session)
        goDown(State::Connecting);
}

void SessionLink::onDelivered(const QString &path, const QVariant &values)
{
    if (isUp())
        emit notified(path, values);
}

} // namespace welmo::links
