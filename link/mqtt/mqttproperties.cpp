#include "link/mqtt/mqttproperties.h"

#include <cstdlib>
#include <mosquitto.h>
#include <mqtt_protocol.h>

#include "link/protocol/mqttmessage.h"

namespace welmo::links::properties {

namespace {

// Frees what the library returns.
struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
using Text = std::unique_ptr<char, Free>;

void readUser(const mqtt5__property *list, MqttMessage *message)
{
    char *name = nullptr;
    char *value = nullptr;
    bool again = false;
    while ((list = mosquitto_property_read_string_pair(list, MQTT_PROP_USER_PROPERTY, &name, &value,
                                                       again))) {
        const Text ownName(name);
        const Text ownValue(value);
        message->properties.append({QString::fromUtf8(name), QString::fromUtf8(value)});
        again = true;
    }
}

} // namespace

void Closer::operator()(mqtt5__property *list) const
{
    mosquitto_property_free_all(&list);
}

List make(const MqttMessage &message)
{
    mqtt5__property *list = nullptr;
    if (!message.responseTopic.isEmpty())
        mosquitto_property_add_string(&list, MQTT_PROP_RESPONSE_TOPIC,
                                      message.responseTopic.toUtf8().constData());
    if (!message.correlation.isEmpty())
        mosquitto_property_add_binary(&list, MQTT_PROP_CORRELATION_DATA,
                                      message.correlation.constData(),
                                      static_cast<uint16_t>(message.correlation.size()));
    for (const auto &[name, value] : message.properties)
        mosquitto_property_add_string_pair(&list, MQTT_PROP_USER_PROPERTY,
                                           name.toUtf8().constData(), value.toUtf8().constData());
    return List(list);
}

void read(const mqtt5__property *list, MqttMessage *message)
{
    char *topic = nullptr;
    if (mosquitto_property_read_string(list, MQTT_PROP_RESPONSE_TOPIC, &topic, false)) {
        const Text own(topic);
        message->responseTopic = QString::fromUtf8(topic);
    }
    void *data = nullptr;
    uint16_t length = 0;
    if (mosquitto_property_read_binary(list, MQTT_PROP_CORRELATION_DATA, &data, &length, false)) {
        const std::unique_ptr<void, Free> own(data);
        message->correlation = QByteArray(static_cast<const char *>(data), length);
    }
    readUser(list, message);
}

} // namespace welmo::links::properties
