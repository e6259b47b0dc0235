#pragma once

#include <QtGlobal>
#include <optional>

namespace welmo::links {

/// The cell's time as its pendant computes it from the cell's heartbeats. It is never ahead of the
/// cell's clock, so that a beat never looks newer than it is, while the clocks drift by up to 500
/// ppm; it is behind by little more than the fastest message took.
///
/// It keeps the largest difference seen, which loses 1 ms in each second, twice the drift. The
/// difference is dropped when an answer proves it wrong, because one of the clocks stopped or was
/// set.
class CellClock
{
public:
    /// Forgets the difference.
    void forget() { m_known = false; }
    /// The cell's clock was @p theirs in a message that arrived at @p now of the own clock, after
    /// the cell had received what was sent at @p sent.
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
