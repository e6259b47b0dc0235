#include "link/protocol/mqttmessage.h"

#include <algorithm>

namespace welmo::links {

QString MqttMessage::property(const QString &name) const
{
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&name](const auto &entry) { return entry.first == name; });
    return found == properties.end() ? QString() : found->second;
}

} // namespace welmo::links
