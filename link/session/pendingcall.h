#pragma once

#include <QMutex>
#include <QWaitCondition>

#include "tessa/controllerlink.h"

namespace welmo::links {

/// One call on its way. The caller waits on it, the far end settles it; whoever comes second finds
/// it settled, so an answer that comes too late goes nowhere. Any thread may call.
class PendingCall
{
public:
    explicit PendingCall(tessa::LinkRequest asked);

    const tessa::LinkRequest request;

    /// The reply, or TimedOut after @p timeoutMs, which settles the exchange as well.
    tessa::LinkReply wait(int timeoutMs);
    void settle(const tessa::LinkReply &reply);
    /// True when nobody waits any more: what was not carried out yet must not be.
    bool isSettled() const;

private:
    mutable QMutex m_mutex;
    QWaitCondition m_ready;
    bool m_settled = false;
    tessa::LinkReply m_reply;
};

} // namespace welmo::links
