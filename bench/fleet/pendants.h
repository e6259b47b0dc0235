#pragma once

#include <QTimer>
#include <memory>
#include <vector>

#include "link/mqtt/mqttlink.h"

namespace fleet {

/// The links of many pendants, each to a cell of its own, that watch a value and hold no key. All
/// of them live on the thread that made them.
class Pendants
{
public:
    /// The cells are @p first and those after it. Links are opened a little after each other.
    Pendants(const welmo::links::BrokerAddress &broker, int first, int count);

    int up() const;
    bool areUp() const { return up() == int(m_links.size()); }
    int losses() const { return m_losses; }
    qint64 heard() const { return m_heard; }

private:
    void add(const welmo::links::BrokerAddress &broker, int cell);

    std::vector<std::unique_ptr<welmo::links::MqttLink>> m_links;
    QTimer m_beats;
    int m_losses = 0;
    qint64 m_heard = 0;
};

} // namespace fleet
