#pragma once

#include <QVector>
#include <optional>

#include "controller/core/request.h"

namespace welmo::controller {

/// Whether motion that a held key started may continue. The pendant's beats prove that it is alive
/// and which keys are held; each beat is valid for a short time only. Every press may start
/// something once: after a refusal or a stop, only a new press starts it again.
///
/// This keeps a wire from running away from a dead pendant. It is no safety function: the enabling
/// switch and the emergency stop are hardware.
class HoldToRun
{
public:
    /// How long a beat is valid, in milliseconds. With a beat every 25 ms two may be lost; with a
    /// check every paceMs(), all motion has stopped 100 ms after the last beat.
    static constexpr int beatCountsMs = 80;
    static constexpr int paceMs = 10;

    /// The pendant was alive at @p time. @p presses are the numbers of the presses whose keys are
    /// held, oldest first.
    void beat(qint64 time, const QVector<int> &presses);
    /// There is no pendant until the next beat.
    void losePendant() { m_lastBeat.reset(); }

    /// Whether a key may start its motion: only once a beat has told of its press, so that a late
    /// command does not start anything after the key came up. Uses up the newest press, whatever
    /// the answer, and stores its number in @p press.
    Reply start(qint64 now, int *press);
    /// Why the motion started by @p press must stop now; empty while a living pendant holds its
    /// key. Other held keys do not count.
    QString failure(qint64 now, int press) const;

private:
    std::optional<qint64> m_lastBeat;
    QVector<int> m_presses;
    int m_used = 0;
};

} // namespace welmo::controller
