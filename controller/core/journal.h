#pragma once

#include <QMutex>
#include <QString>
#include <QVariant>
#include <QVector>

namespace welmo::controller {

/// What the machine did, with the controller's own times: proof from the far side of what a key on
/// the pendant set off. In memory; the oldest entries give way. Any thread may call.
class Journal
{
public:
    enum class Event {
        WireFeeds, ///< by a key or a program; wire that a weld consumes is not told apart
        WireRetracts,
        WireStops,
        GasFlows,
        GasStops,
        Jogs, ///< a key moves the robot; the cause is the axis
        JogStops,
        Weld, ///< the cause is the phase that begins
        Program, ///< the cause is the state it is in now
        Message, ///< something that a program ignores or gets over
        Alarm ///< something that ended a weld or a program
    };

    struct Entry
    {
        qint64 time; ///< of the controller's clock, in milliseconds
        Event event;
        QString cause; ///< such as the command, or the fault, that set it off
    };

    static constexpr int capacity = 10000;

    void add(qint64 time, Event event, const QString &cause);
    /// Oldest first.
    QVector<Entry> entries() const;
    /// The newest @p count entries, oldest first, as maps {time, event, cause}.
    QVariantList recent(int count) const;

private:
    mutable QMutex m_mutex;
    QVector<Entry> m_entries;
};

} // namespace welmo::controller
