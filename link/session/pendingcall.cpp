#include "link/session/pendingcall.h"

#include <QDeadlineTimer>

using tessa::LinkReply;

namespace welmo::links {

PendingCall::PendingCall(tessa::LinkRequest asked)
    : request(std::move(asked))
{ }

LinkReply PendingCall::wait(int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    const QMutexLocker lock(&m_mutex);
    while (!m_settled && m_ready.wait(&m_mutex, deadline)) { }
    if (!m_settled) {
        m_settled = true;
        m_reply = {LinkReply::TimedOut, {}};
    }
    return m_reply;
}

void PendingCall::settle(const LinkReply &reply)
{
    const QMutexLocker lock(&m_mutex);
    if (m_settled)
        return;
    m_settled = true;
    m_reply = reply;
    m_ready.wakeAll();
}

bool PendingCall::isSettled() const
{
    const QMutexLocker lock(&m_mutex);
    return m_settled;
}

} // namespace welmo::links
