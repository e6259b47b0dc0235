#include "controller/journal.h"

namespace controller {

void Journal::add(qint64 time, Event event, const QString &cause)
{
    const QMutexLocker lock(&m_mutex);
    if (m_entries.size() == capacity)
        m_entries.remove(0, capacity / 10);
    m_entries.append({time, event, cause});
}

QVector<Journal::Entry> Journal::entries() const
{
    const QMutexLocker lock(&m_mutex);
    return m_entries;
}

} // namespace controller
