#include "controller/welding/holdtorun.h"

namespace welmo::controller {

void HoldToRun::beat(qint64 time, int press)
{
    m_lastBeat = time;
    m_press = press;
    // A pendant that starts anew may count from the beginning; it starts with no key held.
    if (press == noPress)
        m_used = noPress;
}

Reply HoldToRun::start(qint64 now)
{
    QString reason = failure(now);
    if (reason.isEmpty() && m_press == m_used)
        reason = QStringLiteral("the same press again");
    m_used = m_press;
    return reason.isEmpty() ? Reply{} : Reply::refused(WrongState, reason);
}

QString HoldToRun::failure(qint64 now) const
{
    if (!m_lastBeat)
        return QStringLiteral("pendant lost");
    if (now - *m_lastBeat >= beatCountsMs)
        return QStringLiteral("no heartbeat");
    return m_press == noPress ? QStringLiteral("no key held") : QString();
}

} // namespace welmo::controller
