#include "tessa/notificationqueue.h"

#include <QElapsedTimer>
#include <QMutexLocker>
#include <QPair>
#include <QVector>
#include <utility>

namespace tessa {

namespace {

bool isEvent(const QVariant &value)
{
    return value.userType() == QMetaType::QString || value.userType() == QMetaType::Bool;
}

// Whether merging would hide a change of a word or a switch.
bool hidesEvent(const QVariantMap &earlier, const QVariantMap &later)
{
    for (auto it = later.begin(); it != later.end(); ++it) {
        if (isEvent(it.value()) && earlier.contains(it.key())
            && earlier.value(it.key()) != it.value())
            return true;
    }
    return false;
}

void merge(QVariant &values, const QVariant &later)
{
    QVariantMap map = values.toMap();
    values.clear(); // releases the shared copy, so that insertions do not copy the map
    const QVariantMap added = later.toMap();
    for (auto it = added.begin(); it != added.end(); ++it)
        map.insert(it.key(), it.value());
    values = map;
}

bool areMaps(const QVariant &a, const QVariant &b)
{
    return a.userType() == QMetaType::QVariantMap && b.userType() == QMetaType::QVariantMap;
}

} // namespace

NotificationQueue::NotificationQueue(QObject *parent, Clock clock)
    : QObject(parent)
    , m_clock(std::move(clock))
{
    m_pace.setSingleShot(true);
    m_pace.setTimerType(Qt::PreciseTimer);
    connect(&m_pace, &QTimer::timeout, this, &NotificationQueue::drain);
}

NotificationQueue::Clock NotificationQueue::steadyClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

void NotificationQueue::push(const QString &path, const QVariant &values)
{
    const QMutexLocker lock(&m_mutex);
    Node &node = m_nodes[path];
    append(node, values);
    // One event at a time, so that a busy screen gathers no backlog. No event either if the timer
    // will deliver in time: there may be hundreds of notifications a second.
    const bool timerIsInTime = node.due >= m_wakeAt && node.due > m_clock();
    if (m_wakePosted || timerIsInTime)
        return;
    m_wakePosted = true;
    QMetaObject::invokeMethod(this, &NotificationQueue::drain, Qt::QueuedConnection);
}

void NotificationQueue::append(Node &node, const QVariant &values)
{
    auto &waiting = node.waiting;
    const bool mergeable = !waiting.empty() && areMaps(waiting.back(), values)
        && !hidesEvent(waiting.back().toMap(), values.toMap());
    if (mergeable)
        merge(waiting.back(), values);
    else
        waiting.push_back(values);
    if (waiting.size() <= size_t(capacity))
        return;
    QVariant oldest = std::move(waiting.front());
    waiting.pop_front();
    if (!areMaps(oldest, waiting.front()))
        return;
    merge(oldest, waiting.front());
    waiting.front() = std::move(oldest);
}

void NotificationQueue::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_nodes.clear();
}

void NotificationQueue::drain()
{
    QVector<QPair<QString, QVariant>> ready;
    qint64 next = never;
    {
        const QMutexLocker lock(&m_mutex);
        m_wakePosted = false;
        const qint64 now = m_clock();
        for (auto it = m_nodes.begin(); it != m_nodes.end(); ++it) {
            Node &node = it.value();
            if (node.waiting.empty())
                continue;
            if (node.due <= now) {
                ready.append({it.key(), node.waiting.front()});
                node.waiting.pop_front();
                node.due = now + intervalMs;
            }
            if (!node.waiting.empty())
                next = qMin(next, node.due - now);
        }
        m_wakeAt = next == never ? never : now + next;
    }
    if (next != never)
        m_pace.start(int(qMax<qint64>(0, next)));
    for (const auto &[path, values] : qAsConst(ready))
        emit delivered(path, values);
}

} // namespace tessa
