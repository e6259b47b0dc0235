#include "link/mqtt/mqttlink.h"

namespace welmo::links {

namespace {

constexpr int retryMs = 300;

} // namespace

MqttLink::MqttLink(const Options &options, QObject *parent)
    : SessionLink(retryMs, parent)
    , m_mqtt(options.address, options.cell, options.clock)
{
    connect(
        &m_mqtt, &MqttSession::greeted, this, [this](int session) { onGreeted(session); },
        Qt::QueuedConnection);
    connect(
        &m_mqtt, &MqttSession::broken, this, [this](int session) { onBroken(session); },
        Qt::QueuedConnection);
    connect(
        &m_mqtt, &MqttSession::notified, this,
        [this](const QString &path, const QVariant &values) { take(path, values); },
        Qt::DirectConnection);
    connect(&m_mqtt, &MqttSession::problem, this, &ControllerLink::problem, Qt::QueuedConnection);
}

void MqttLink::ask(int session, const std::shared_ptr<PendingCall> &call, int timeoutMs)
{
    m_mqtt.ask(session, call, timeoutMs);
}

} // namespace welmo::links
