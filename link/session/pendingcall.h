#pragma once

#include <QMutex>
#include <QWaitCondition>

#include "tessa/controllerlink.h"

namespace welmo::links {

/// One call on its way. The caller waits on it, the server answers it; whoever comes second finds
/// it answered, so an answer that comes too late goes nowhere. Any thread may call.
class PendingCall
{
public:
    explicit PendingCall(tessa::LinkRequest asked);

    const tessa::LinkRequest request;

    /// The reply, or TimedOut after @p timeoutMs, which answers the call as well.
    tessa::LinkReply wait(int timeoutMs);
    void answer(const tessa::LinkReply &reply);
    /// True when nobody waits any more: what was not carried out yet must not be.
    bool isAnswered() const;

private:
    mutable QMutex m_mutex;
    QWaitCondition m_ready;
    bool m_answered = false;
    tessa::LinkReply m_reply;
};

} // namespace welmo::links
