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

/// Takes a controller's notifications from any thread and delivers each node's at most 30 times a
/// second, which a screen can follow. Numbers that wait are merged, key by key, and the last value
/// always arrives. Words and switches are events: a notification that changes one is delivered
/// separately. The number that wait is limited for each node; beyond it the oldest are merged.
class NotificationQueue : public QObject
{
    Q_OBJECT
public:
    static constexpr int intervalMs = 34; ///< between two deliveries of one node
    static constexpr int capacity = 64; ///< the most waiting notifications of one node

    /// Milliseconds that never go back; may be called on any thread, but never at the same time.
    using Clock = std::function<qint64()>;

    explicit NotificationQueue(QObject *parent = nullptr, Clock clock = steadyClock());

    /// Adds a notification; any thread.
    void push(const QString &path, const QVariant &values);
    /// Drops all waiting notifications, as when their session has ended.
    void clear();

signals:
    /// Emitted on the queue's own thread, through its event loop.
    void delivered(const QString &path, const QVariant &values);

private:
    struct Node
    {
        std::deque<QVariant> waiting{};
        qint64 due = 0; ///< earliest delivery, in milliseconds of m_clock
    };

    static constexpr qint64 never = std::numeric_limits<qint64>::max();

    static Clock steadyClock();
    void drain();
    void append(Node &node, const QVariant &values);

    QMutex m_mutex;
    QHash<QString, Node> m_nodes;
    bool m_wakePosted = false;
    qint64 m_wakeAt = never; ///< when the timer will fire, by m_clock
    Clock m_clock;
    QTimer m_pace;
};

} // namespace tessa
