#include "bench/fleet/reader.h"

#include <QMutexLocker>

#include "schema/names.h"

namespace fleet {

Reader::Reader(const welmo::links::BrokerAddress &address, const Cells &cells)
    : m_cells(cells)
    , m_client({address, QStringLiteral("reader")},
               {[this] {
                    m_client.subscribe(
                        QStringLiteral("welmo/1/+/value/") + welmo::names::welderStateRate, 0);
                },
                [](const QString &, bool) {},
                [this](const welmo::links::MqttMessage &message) { take(message); }})
{
    m_client.start();
}

std::vector<qint64> Reader::latencies()
{
    const QMutexLocker lock(&m_mutex);
    return m_latencies;
}

void Reader::take(const welmo::links::MqttMessage &message)
{
    if (message.retained)
        return;
    const qint64 now = m_cells.nowUs();
    const QVariant value = welmo::links::protocol::toValue(message).value_or(QVariant());
    const int cell = Cells::numberOf(message.topic.section('/', 2, 2));
    const QMutexLocker lock(&m_mutex);
    ++m_delivered;
    m_latencies.push_back(
        now - m_cells.sentAtUs(cell, value.toMap().value(QStringLiteral("rate")).toInt()));
}

} // namespace fleet
