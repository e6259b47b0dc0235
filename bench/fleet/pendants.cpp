#include "bench/fleet/pendants.h"

#include <algorithm>

#include "bench/fleet/cells.h"
#include "schema/names.h"

namespace fleet {

namespace {

constexpr int beatMs = 200; // of a pendant without a held key
constexpr int stepMs = 20; // from one start to the next
constexpr int callMs = 1600;

} // namespace

Pendants::Pendants(const welmo::links::BrokerAddress &broker, int first, int count)
{
    for (int cell = first; cell < first + count; ++cell)
        add(broker, cell);
    QObject::connect(&m_beats, &QTimer::timeout, &m_beats, [this] {
        for (const auto &link : m_links)
            link->beat({});
    });
    m_beats.start(beatMs);
}

void Pendants::add(const welmo::links::BrokerAddress &broker, int cell)
{
    m_links.push_back(std::make_unique<welmo::links::MqttLink>(
        welmo::links::MqttLink::Options{broker, Cells::nameOf(cell)}));
    welmo::links::MqttLink *link = m_links.back().get();
    QObject::connect(link, &welmo::links::MqttLink::upChanged, link, [this, link](bool up) {
        m_losses += up ? 0 : 1;
        if (up)
            link->call({tessa::LinkRequest::Kind::Watch, welmo::names::welderStateRate, {}, {}},
                       callMs);
    });
    QObject::connect(link, &welmo::links::MqttLink::notified, link, [this] { ++m_heard; });
    QTimer::singleShot(int(m_links.size()) * stepMs, link, [link] { link->open(); });
}

int Pendants::up() const
{
    return int(std::count_if(m_links.begin(), m_links.end(),
                             [](const auto &link) { return link->isUp(); }));
}

} // namespace fleet
