#pragma once

#include <QHash>
#include <QMutex>
#include <QObject>
#include <QTimer>
#include <QVariant>
#include <deque>
#include <functional>
#include <limits>

namespace tessa {

/// Takes a controller's notifications from any thread and hands them on at a pace that a screen can
/// follow: each node at most 30 times a second. Numbers are levels: what waits is merged, key by
/// key, and the last value always arrives. Words and switches are events: a notification that
/// changes one is kept for itself. Bounded for each node; past the bound the oldest wait merges.
class NotificationQueue : public QObject
{
    Q_OBJECT
public:
    static constexpr int intervalMs = 34; ///< between two deliveries of one node
    static constexpr int capacity = 64; ///< waiting notifications of one node

    /// Milliseconds that never go back; called on any thread, one at a time.
    using Clock = std::function<qint64()>;

    explicit NotificationQueue(QObject *parent = nullptr, Clock clock = steadyClock());

    /// A notification came in; any thread.
    void push(const QString &path, const QVariant &values);
    /// Forgets what waits, such as when its session ended.
    void clear();

signals:
    /// On the queue's own thread, through its event loop.
    void delivered(const QString &path, const QVariant &values);

private:
    struct Node
    {
        std::deque<QVariant> waiting;
        qint64 due = 0; ///< not before, in milliseconds of m_clock
    };

    static constexpr qint64 never = std::numeric_limits<qint64>::max();

    static Clock steadyClock();
    void drain();
    void append(Node &node, const QVariant &values);

    QMutex m_mutex;
    QHash<QString, Node> m_nodes;
    bool m_wakePosted = false;
    qint64 m_wakeAt = never; ///< when the timer will wake, by m_clock
    Clock m_clock;
    QTimer m_pace;
};

} // namespace tessa
