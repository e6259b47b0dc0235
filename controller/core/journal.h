#pragma once

#include <QMutex>
#include <QString>
#include <QVariant>
#include <QVector>

namespace welmo::controller {

/// What the machine did, with the controller's own times, as evidence of what a key of the pendant
/// caused. Kept in memory; the oldest entries are dropped. Any thread may call.
class Journal
{
public:
    enum class Event {
        WireFeeds, ///< moved by a key or a program; the wire that a weld consumes is not recorded
        WireRetracts,
        WireStops,
        GasFlows,
        GasStops,
        Jogs, ///< a key moves the robot; the cause is the axis
        JogStops,
        Weld, ///< the cause is the phase that begins
        Program, ///< the cause is the new state
        Message, ///< something that a program ignored or recovered from
        Alarm ///< something that ended a weld or a program
    };

    struct Entry
    {
        qint64 time; ///< of the controller's clock, in milliseconds
        Event event;
        QString cause; ///< such as the command or the fault that caused it
    };

    static constexpr int capacity = 10000;

    void add(qint64 time, Event event, const QString &cause);
    /// All entries, oldest first.
    QVector<Entry> entries() const;
    /// The newest @p count entries, oldest first, as maps {time, event, cause}.
    QVariantList recent(int count) const;

private:
    mutable QMutex m_mutex;
    QVector<Entry> m_entries;
};

} // namespace welmo::controller
