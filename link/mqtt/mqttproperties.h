#pragma once

#include <memory>

struct mqtt5__property; // NOLINT(bugprone-reserved-identifier): the library's own name

namespace welmo::links {
struct MqttMessage;
}

/// Converts MQTT 5 properties between MqttMessage and the library's form.
namespace welmo::links::properties {

struct Closer
{
    void operator()(mqtt5__property *list) const;
};
using List = std::unique_ptr<mqtt5__property, Closer>;

List make(const MqttMessage &message);
void read(const mqtt5__property *list, MqttMessage *message);

} // namespace welmo::links::properties
