#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

namespace welmo::links {

/// A message of MQTT 5 as the protocol uses it.
struct MqttMessage
{
    QString topic;
    QByteArray payload;
    int qos = 0;
    bool retained = false;
    QString responseTopic = {};
    QByteArray correlation = {};
    QVector<QPair<QString, QString>> properties = {};

    /// The value of the user property @p name; empty if there is none.
    QString property(const QString &name) const;
};

} // namespace welmo::links
