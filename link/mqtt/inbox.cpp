#include "link/mqtt/inbox.h"

#include <QMutexLocker>
#include <algorithm>

namespace welmo::links {

bool Inbox::Allowance::spend(double amount, double share, double seconds)
{
    left = std::min(share, left + seconds * share);
    if (amount > left)
        return false;
    left -= amount;
    return true;
}

bool Inbox::put(const QString &user, const MqttMessage &message, qint64 now)
{
    constexpr double second = 1000;
    const int size = message.payload.size();
    const QMutexLocker lock(&m_mutex);
    const bool isNew = !m_queues.contains(user);
    Queue &queue = m_queues[user];
    const double seconds = isNew ? 0 : double(now - queue.last) / second;
    queue.last = now;
    const bool allowed = queue.count.spend(1, messagesEachSecond, seconds)
        && queue.size.spend(size, bytesEachSecond, seconds);
    if (!allowed || int(queue.messages.size()) >= mostWaiting
        || queue.bytes + size > mostBytesWaiting)
        return false;
    if (queue.messages.empty())
        m_turns.push_back(user);
    queue.messages.push_back(message);
    queue.bytes += size;
    return true;
}

std::optional<Inbox::Item> Inbox::take()
{
    const QMutexLocker lock(&m_mutex);
    if (m_turns.empty())
        return std::nullopt;
    Item item{m_turns.front(), {}};
    m_turns.pop_front();
    Queue &queue = m_queues[item.user];
    item.message = std::move(queue.messages.front());
    queue.messages.pop_front();
    queue.bytes -= item.message.payload.size();
    if (!queue.messages.empty())
        m_turns.push_back(item.user);
    return item;
}

} // namespace welmo::links
