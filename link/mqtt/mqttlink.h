#pragma once

#include "link/mqtt/brokeraddress.h"
#include "link/mqtt/mqttsession.h"
#include "link/session/sessionlink.h"

namespace welmo::links {

/// A link to a cell on the network, over a broker. It is up once the cell has answered a first
/// request; a granted subscription is no proof, since a broker grants forbidden ones too. It goes
/// down when cell, broker or network is silent for a quarter of a second.
class MqttLink : public SessionLink
{
    Q_OBJECT
public:
    struct Options
    {
        BrokerAddress address;
        QString cell;
        controller::Clock clock = controller::steadyClock(); ///< called on both threads
    };

    explicit MqttLink(const Options &options, QObject *parent = nullptr);

protected:
    void greet(int session) override { m_mqtt.greet(session); }
    void ask(int session, const std::shared_ptr<PendingCall> &call, int timeoutMs) override;
    void leave() override { m_mqtt.leave(); }
    void beatOn(int session, const QVector<int> &presses) override
    {
        m_mqtt.beat(session, presses);
    }

private:
    MqttSession m_mqtt;
};

} // namespace welmo::links
