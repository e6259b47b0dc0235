#include "link/mqttlink.h"

namespace links {

namespace {

constexpr int retryMs = 300;

} // namespace

MqttLink::MqttLink(const Options &options, QObject *parent)
    : SessionLink(retryMs, parent)
    , m_courier(options.address, options.cell, options.clock)
{
    connect(
        &m_courier, &Courier::greeted, this, [this](int session) { onGreeted(session); },
        Qt::QueuedConnection);
    connect(
        &m_courier, &Courier::broken, this, [this](int session) { onBroken(session); },
        Qt::QueuedConnection);
    connect(
        &m_courier, &Courier::notified, this,
        [this](const QString &path, const QVariant &values) { take(path, values); },
        Qt::DirectConnection);
    connect(&m_courier, &Courier::problem, this, &ControllerLink::problem, Qt::QueuedConnection);
}

void MqttLink::ask(int session, const std::shared_ptr<Exchange> &exchange, int timeoutMs)
{
    m_courier.ask(session, exchange, timeoutMs);
}

} // namespace links
