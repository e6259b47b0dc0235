#pragma once

#include <QHash>
#include <QMutex>
#include <deque>
#include <optional>

#include "link/protocol/mqttmessage.h"

namespace welmo::links {

/// What came in for a cell and waits for it: a queue for each user, and the users in turn, so that
/// nobody waits for what somebody else sent. What is more than a user's share is not taken in. Any
/// thread may put, one takes.
class Inbox
{
public:
    /// A user's share. What a pendant sends by itself is a hundredth of it.
    static constexpr int mostWaiting = 256;
    static constexpr int mostBytesWaiting = 4 * 1024 * 1024;
    static constexpr int messagesEachSecond = 5000;
    static constexpr int bytesEachSecond = 4 * 1024 * 1024;

    struct Item
    {
        QString user;
        MqttMessage message;
    };

    /// False, when it is too much; @p now in milliseconds of any clock that only goes on.
    bool put(const QString &user, const MqttMessage &message, qint64 now);
    /// The next one, of the user whose turn it is.
    std::optional<Item> take();

private:
    // What is left of a second's share; it fills up again as time goes on.
    struct Allowance
    {
        double left;
        bool spend(double amount, double share, double seconds);
    };
    struct Queue
    {
        std::deque<MqttMessage> messages;
        int bytes = 0;
        qint64 last = 0;
        Allowance count{messagesEachSecond};
        Allowance size{bytesEachSecond};
    };

    QMutex m_mutex;
    QHash<QString, Queue> m_queues;
    std::deque<QString> m_turns; // users with something in their queue, the next one first
};

} // namespace welmo::links
