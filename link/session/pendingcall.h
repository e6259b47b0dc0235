#pragma once

#include <QMutex>
#include <QWaitCondition>

#include "tessa/controllerlink.h"

namespace welmo::links {

/// A call that waits for its answer. The first answer counts, whether it comes from the server or
/// from the time limit; later ones are dropped. Any thread may call.
class PendingCall
{
public:
    explicit PendingCall(tessa::LinkRequest asked);

    const tessa::LinkRequest request;

    /// Waits for the reply; after @p timeoutMs the call is answered with TimedOut.
    tessa::LinkReply wait(int timeoutMs);
    void answer(const tessa::LinkReply &reply);
    /// True if the call needs no answer any more: it must not be carried out then.
    bool isAnswered() const;

private:
    mutable QMutex m_mutex;
    QWaitCondition m_ready;
    bool m_answered = false;
    tessa::LinkReply m_reply;
};

} // namespace welmo::links
