#include "link/protocol/cellclock.h"

namespace welmo::links {

namespace {

constexpr qint64 agesOneInMs = 1000;
constexpr qint64 roundingMs = 2; // both clocks count whole milliseconds

} // namespace

void CellClock::hear(qint64 theirs, qint64 now, std::optional<qint64> sent)
{
    const qint64 least = theirs - now; // the message took time to arrive
    const bool wrong = sent && offset(now) > theirs - *sent + roundingMs;
    if (m_known && !wrong && least < offset(now))
        return;
    m_known = true;
    m_offset = least;
    m_since = now;
}

qint64 CellClock::offset(qint64 now) const
{
    return m_known ? m_offset - (now - m_since) / agesOneInMs : 0;
}

} // namespace welmo::links
