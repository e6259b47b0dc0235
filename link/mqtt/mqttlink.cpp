#include "link/mqtt/mqttlink.h"

namespace welmo::links {

namespace {

constexpr int retryMs = 300;

} // namespace

MqttLink::MqttLink(const Options &options, QObject *parent)
    : SessionLink(retryMs, parent)
    , m_courier(options.address, options.cell, options.clock)
{
    connect(
        &m_courier, &MqttSession::greeted, this, [this](int session) { onGreeted(session); },
        Qt::QueuedConnection);
    connect(
        &m_courier, &MqttSession::broken, this, [this](int session) { onBroken(session); },
        Qt::QueuedConnection);
    connect(
        &m_courier, &MqttSession::notified, this,
        [this](const QString &path, const QVariant &values) { take(path, values); },
        Qt::DirectConnection);
    connect(&m_courier, &MqttSession::problem, this, &ControllerLink::problem,
            Qt::QueuedConnection);
}

void MqttLink::ask(int session, const std::shared_ptr<PendingCall> &exchange, int timeoutMs)
{
    m_courier.ask(session, exchange, timeoutMs);
}

} // namespace welmo::links
