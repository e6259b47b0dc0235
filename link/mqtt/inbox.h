#pragma once

#include <QHash>
#include <QMutex>
#include <deque>
#include <optional>

#include "link/protocol/mqttmessage.h"

namespace welmo::links {

/// Messages that wait for a cell: a queue for each user, served in turn, so that no user is delayed
/// by another one's messages. Messages beyond a user's share are refused. Any thread may put, one
/// takes.
class Inbox
{
public:
    /// A user's share; a pendant by itself sends a hundredth of it.
    static constexpr int mostWaiting = 256;
    static constexpr int mostBytesWaiting = 4 * 1024 * 1024;
    static constexpr int messagesEachSecond = 5000;
    static constexpr int bytesEachSecond = 4 * 1024 * 1024;

    struct Item
    {
        QString user;
        MqttMessage message;
    };

    /// False if it is beyond the user's share; @p now is in milliseconds of any steady clock.
    bool put(const QString &user, const MqttMessage &message, qint64 now);
    /// The next message, of the user whose turn it is.
    std::optional<Item> take();

private:
    // What is left of a second's share; it grows with time.
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
    std::deque<QString> m_turns; // users with waiting messages, the next one first
};

} // namespace welmo::links
