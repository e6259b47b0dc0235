#include "controller/core/holdtorun.h"

namespace welmo::controller {

void HoldToRun::beat(qint64 time, const QVector<int> &presses)
{
    m_lastBeat = time;
    m_presses = presses;
    // A restarted pendant counts its presses from 1 again, and starts with no key held.
    if (presses.isEmpty())
        m_used = 0;
}

Reply HoldToRun::start(qint64 now, int *press)
{
    *press = m_presses.isEmpty() ? 0 : m_presses.last();
    QString reason = failure(now, *press);
    if (reason.isEmpty() && *press <= m_used)
        reason = QStringLiteral("the same press again");
    m_used = std::max(m_used, *press);
    return reason.isEmpty() ? Reply{} : Reply::refused(WrongState, reason);
}

QString HoldToRun::failure(qint64 now, int press) const
{
    if (!m_lastBeat)
        return QStringLiteral("pendant lost");
    if (now - *m_lastBeat >= beatCountsMs)
        return QStringLiteral("no heartbeat");
    if (m_presses.contains(press))
        return {};
    return m_presses.isEmpty() ? QStringLiteral("no key held") : QStringLiteral("another key held");
}

} // namespace welmo::controller
