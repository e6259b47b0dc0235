#pragma once

#include <QSet>
#include <QString>
#include <optional>

#include "controller/request.h"

namespace controller {

/// Whether what a key moves may go on moving. A pendant proves by its beats that it is alive and
/// that a hand is on a key; it is believed for a moment after each beat, no longer. Every press
/// gets one chance: what was refused or stopped needs the key to come up before it moves again.
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

    /// The pendant was alive at @p time, with a key held or with none.
    void beat(qint64 time, bool keyHeld);
    /// There is no pendant any more, until the next beat.
    void losePendant() { m_lastBeat.reset(); }

    /// May @p key start what it moves? A refusal uses the press up.
    Reply press(const QString &key, qint64 now);
    void release(const QString &key) { m_spent.remove(key); }
    /// What @p key moves stands still, though the key is down.
    void spend(const QString &key) { m_spent.insert(key); }

    /// Why what is held has to stop now; empty while a living pendant holds a key.
    QString failure(qint64 now) const;

private:
    std::optional<qint64> m_lastBeat;
    bool m_keyHeld = false;
    QSet<QString> m_spent; // keys that have to come up first
};

} // namespace controller
