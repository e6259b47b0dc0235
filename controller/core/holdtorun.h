#pragma once

#include <QVector>
#include <optional>

#include "controller/core/request.h"

namespace welmo::controller {

/// Whether what a key moves may go on moving. A pendant proves by its beats that it is alive and
/// that a hand is on a key; it is believed for a moment after each beat, no longer. Every press
/// gets one chance: after a refusal or a stop it takes a fresh one.
///
/// This keeps a wire from running away from a dead pendant. It is no safety function: enabling
/// switch and emergency stop are hardware.
class HoldToRun
{
public:
    /// Milliseconds that a beat counts. With beats every 25 ms two may be missed, and with a look
    /// every paceMs all stands still 100 ms after the last one.
    static constexpr int beatCountsMs = 80;
    static constexpr int paceMs = 10;

    /// The pendant was alive at @p time. @p presses are those that hold a key, oldest first; each
    /// press has a number of its own.
    void beat(qint64 time, const QVector<int> &presses);
    /// There is no pendant any more, until the next beat.
    void losePendant() { m_lastBeat.reset(); }

    /// May a key start what it moves? Not before a beat has told of its press, so that an old
    /// command finds no hand on the key. Uses the newest press up, whatever the answer, and gives
    /// its number to @p press.
    Reply start(qint64 now, int *press);
    /// Why what @p press moves has to stop now; empty while a living pendant holds its key. The
    /// hand on another key is no excuse.
    QString failure(qint64 now, int press) const;

private:
    std::optional<qint64> m_lastBeat;
    QVector<int> m_presses;
    int m_used = 0;
};

} // namespace welmo::controller
