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
    while (!m_answered && m_ready.wait(&m_mutex, deadline)) { }
    if (!m_answered) {
        m_answered = true;
        m_reply = {LinkReply::TimedOut, {}};
    }
    return m_reply;
}

void PendingCall::answer(const LinkReply &reply)
{
    const QMutexLocker lock(&m_mutex);
    if (m_answered)
        return;
    m_answered = true;
    m_reply = reply;
    m_ready.wakeAll();
}

bool PendingCall::isAnswered() const
{
    const QMutexLocker lock(&m_mutex);
    return m_answered;
}

} // namespace welmo::links
