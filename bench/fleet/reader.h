#pragma once

#include <QMutex>
#include <atomic>
#include <vector>

#include "bench/fleet/cells.h"

namespace fleet {

/// Reads the value of every cell, as tools of a plant would.
class Reader
{
public:
    Reader(const welmo::links::BrokerAddress &address, const Cells &cells);

    qint64 delivered() const { return m_delivered; }
    /// From a cell to here, in microseconds.
    std::vector<qint64> latencies();

private:
    void take(const welmo::links::MqttMessage &message);

    const Cells &m_cells;
    QMutex m_mutex;
    std::vector<qint64> m_latencies;
    std::atomic<qint64> m_delivered{0};
    welmo::links::MqttClient m_client; // the last member, so that its thread ends first
};

} // namespace fleet
