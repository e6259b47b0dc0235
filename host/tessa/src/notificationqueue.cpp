#include "tessa/notificationqueue.h"

#include <QElapsedTimer>
#include <QMutexLocker>
#include <QPair>
#include <QVector>
#include <limits>
#include <utility>

namespace tessa {

namespace {

bool isEvent(const QVariant &value)
{
    return value.userType() == QMetaType::QString || value.userType() == QMetaType::Bool;
}

// Whether merging would hide that a word or a switch changed.
bool hidesEvent(const QVariantMap &earlier, const QVariantMap &later)
{
    for (auto it = later.begin(); it != later.end(); ++it) {
        if (isEvent(it.value()) && earlier.contains(it.key())
            && earlier.value(it.key()) != it.value())
            return true;
    }
    return false;
}

QVariant merged(const QVariant &earlier, const QVariant &later)
{
    QVariantMap map = earlier.toMap();
    const QVariantMap added = later.toMap();
    for (auto it = added.begin(); it != added.end(); ++it)
        map.insert(it.key(), it.value());
    return map;
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
    append(m_nodes[path], values);
    if (m_wakePosted)
        return;
    // One event at a time, however fast they come: a busy screen must not gather a backlog.
    m_wakePosted = true;
    QMetaObject::invokeMethod(this, &NotificationQueue::drain, Qt::QueuedConnection);
}

void NotificationQueue::append(Node &node, const QVariant &values)
{
    auto &waiting = node.waiting;
    const bool mergeable = !waiting.empty() && areMaps(waiting.back(), values)
        && !hidesEvent(waiting.back().toMap(), values.toMap());
    if (mergeable)
        waiting.back() = merged(waiting.back(), values);
    else
        waiting.push_back(values);
    if (waiting.size() <= size_t(capacity))
        return;
    const QVariant oldest = waiting.front();
    waiting.pop_front();
    if (areMaps(oldest, waiting.front()))
        waiting.front() = merged(oldest, waiting.front());
}

void NotificationQueue::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_nodes.clear();
}

void NotificationQueue::drain()
{
    QVector<QPair<QString, QVariant>> ready;
    qint64 next = std::numeric_limits<qint64>::max();
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
    }
    if (next != std::numeric_limits<qint64>::max())
        m_pace.start(int(qMax<qint64>(0, next)));
    for (const auto &[path, values] : qAsConst(ready))
        emit delivered(path, values);
}

} // namespace tessa
