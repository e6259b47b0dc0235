#pragma once

#include <QtGlobal>
#include <optional>

namespace welmo::links {

/// What a pendant knows of its cell's clock, from what the cell says of it. It is never ahead of
/// the cell, so that a beat never looks fresher than it is, while the clocks drift by up to 500 ppm
/// against each other; and it is behind by little more than the fastest way between the two.
///
/// Kept is the largest difference that was seen, which loses 1 ms in each second: twice the drift.
/// It is dropped when an answer proves it wrong, because one of the clocks stood still or stepped.
class CellClock
{
public:
    /// Nothing is known any more.
    void forget() { m_known = false; }
    /// The cell's clock showed @p theirs in a message that came in at @p now of the own clock,
    /// after it had got what was sent at @p sent.
    void hear(qint64 theirs, qint64 now, std::optional<qint64> sent = {});
    /// The cell's time at @p now of the own clock.
    qint64 at(qint64 now) const { return now + offset(now); }

private:
    qint64 offset(qint64 now) const;

    bool m_known = false;
    qint64 m_offset = 0;
    qint64 m_since = 0;
};

} // namespace welmo::links
