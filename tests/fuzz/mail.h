#pragma once

#include "link/mqtt/mqttclient.h"

/// MQTT messages as texts. A message is its topic below the cell's, lines "name: value", an empty
/// line and the payload. "reply", "correlation" and "retained" set what they name, other lines are
/// user properties. A line "--" ends a message.
namespace mail {

QVector<welmo::links::MqttMessage> read(const QByteArray &input);

/// What the client that was made last has published, instead of a connection.
struct Client
{
    welmo::links::MqttClient::Handlers handlers;
    QVector<welmo::links::MqttMessage> sent;
    bool online = false;
};
/// Null when there is none.
Client *client();

/// Where a cell's topics begin.
inline const QString root = QStringLiteral("welmo/1/cell/");

} // namespace mail
