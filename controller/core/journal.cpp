#include "controller/core/journal.h"

#include <array>

namespace welmo::controller {

namespace {

QString wordFor(Journal::Event event)
{
    static const std::array<const char *, 11> words{
        "wire_feeds", "wire_retracts", "wire_stops", "gas_flows", "gas_stops", "jogs",
        "jog_stops",  "weld",          "program",    "message",   "alarm"};
    return QString::fromLatin1(words.at(static_cast<size_t>(event)));
}

} // namespace

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

QVariantList Journal::recent(int count) const
{
    QVariantList list;
    const QVector<Entry> all = entries();
    for (const Entry &entry : all.mid(qMax(0, all.size() - count))) {
        list.append(QVariantMap{{QStringLiteral("time"), entry.time},
                                {QStringLiteral("event"), wordFor(entry.event)},
                                {QStringLiteral("cause"), entry.cause}});
    }
    return list;
}

} // namespace welmo::controller
