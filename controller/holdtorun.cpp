#include "controller/holdtorun.h"

namespace controller {

void HoldToRun::beat(qint64 time, bool keyHeld)
{
    m_lastBeat = time;
    m_keyHeld = keyHeld;
    // Releases can get lost on the way; a hand that is off all keys cannot.
    if (!keyHeld)
        m_spent.clear();
}

Reply HoldToRun::press(const QString &key, qint64 now)
{
    // The last beat is older than this press and may not know of it.
    m_keyHeld = true;
    QString reason = failure(now);
    if (reason.isEmpty() && m_spent.contains(key))
        reason = QStringLiteral("the same press again");
    if (reason.isEmpty())
        return {};
    spend(key);
    return Reply::refused(WrongState, reason);
}

QString HoldToRun::failure(qint64 now) const
{
    if (!m_lastBeat)
        return QStringLiteral("pendant lost");
    if (now - *m_lastBeat >= beatCountsMs)
        return QStringLiteral("no heartbeat");
    return m_keyHeld ? QString() : QStringLiteral("no key held");
}

} // namespace controller
