#include "link/protocol/protocol.h"

#include "controller/core/json.h"
#include "fuzz.h"
#include "kelp/moduleobject.h"
#include "mail.h"

using namespace welmo::links;

namespace {

QVariantMap mapOf(const QByteArray &payload)
{
    return welmo::controller::fromJson('[' + payload + ']').value_or(QVariant()).toMap();
}

// Reads the message and writes it again: each value was in the message, or is empty.
template<typename Read>
void check(const MqttMessage &message, Read read)
{
    const auto content = read(message);
    if (!content)
        return;
    const MqttMessage again = protocol::toMessage(*content);
    const QVariantMap before = mapOf(message.payload);
    const QVariantMap after = mapOf(again.payload);
    for (auto it = after.begin(); it != after.end(); ++it) {
        const QVariant sent = before.value(it.key());
        require(sent.isValid() ? kelp::sameValue(sent, it.value())
                               : it.value().toString().isEmpty() || it.value() == 0,
                "what is read is what was sent", it.key() + " of " + message.payload);
    }
    const bool greets = before.value("kind") == "hello"; // a greeting needs no more than a key
    for (const auto &[name, value] : again.properties)
        require(greets || message.property(name).isEmpty()
                    || message.property(name).trimmed() == value
                    || message.property(name).toLongLong() == value.toLongLong(),
                "a property is what was sent", name);
    require(read(again).has_value(), "what is written can be read", again.payload);
}

} // namespace

/// The input is a message, which every reader reads.
void fuzz(const QByteArray &input)
{
    const MqttMessage message = mail::read(input).constFirst();
    check(message, protocol::toRequest);
    check(message, protocol::toBeat);
    check(message, protocol::toAlive);
    check(message, protocol::toReply);
    if (const auto value = protocol::toValue(message); value && !message.payload.isEmpty()) {
        require(mapOf(message.payload).contains("value"), "a value is told", message.payload);
        require(welmo::controller::isPlain(*value), "a value is plain", message.payload);
    }
    check(message, protocol::toRecord);
    check(message, protocol::toTaken);
    if (const auto status = protocol::toStatus(message))
        require(mapOf(message.payload).value("present") == status->present, "a status is told",
                message.payload);

    const protocol::Topics topics("cell");
    const QString user = topics.requester(message.topic);
    require(user.isEmpty() || topics.request(user) == message.topic, "a request's topic",
            message.topic);
    require(topics.beater(message.topic).isEmpty() || user.isEmpty(),
            "no topic is a request's and a beat's", message.topic);
    const QString client = topics.replier(message.responseTopic, "anna");
    require(client.isEmpty() || topics.reply("anna", client) == message.responseTopic,
            "a reply's topic", message.responseTopic);
}
