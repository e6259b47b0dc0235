#pragma once

#include "link/mqtt/mqttclient.h"

/// MQTT messages as texts: the topic below the cell's, a line for each thing beside the payload
/// ("name: value"; "reply", "correlation" and "retained" are no properties), an empty line, the
/// payload. A line "--" ends a message.
namespace mail {

QVector<welmo::links::MqttMessage> read(const QByteArray &input);

/// Instead of a connection: what is published and subscribed comes here, in the order of clients.
struct Client
{
    welmo::links::MqttClient::Handlers handlers;
    QVector<welmo::links::MqttMessage> sent;
    bool online = false;
};
/// The client made last; null when it is gone.
Client *client();

/// Where a cell's topics begin.
inline const QString root = QStringLiteral("welmo/1/cell/");

} // namespace mail
