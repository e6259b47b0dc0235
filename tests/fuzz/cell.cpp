#include <algorithm>

#include "controller/core/json.h"
#include "fuzz.h"
#include "link/simulatedcell.h"
#include "schema/names.h"

using namespace welmo::links;

namespace {

/// A cell with a pendant of each of two users: one may do everything, one may look.
struct Plant : SimulatedCell
{
    // Each input has sessions of its own.
    void greet(const QString &user)
    {
        protocol::Request hello;
        hello.hello = true;
        hello.content.key = QString::number(++greetings);
        MqttMessage message = protocol::toMessage(hello);
        message.topic = mail::root + "request/" + user;
        message.responseTopic = mail::root + "reply/" + user + "/pendant";
        now += 1000; // else the cell takes the greetings of many inputs for a flood
        const QVector<MqttMessage> sent = deliver(message);
        const auto answer = std::find_if(sent.begin(), sent.end(), [&](const auto &each) {
            return each.topic == message.responseTopic;
        });
        require(answer != sent.end(), "a greeting is answered", user);
        const auto reply = protocol::toReply(*answer);
        require(reply && reply->ok(), "in words that are read", answer->payload);
        sessions.insert(user, reply->value.toMap().value("session").toString());
    }
    int greetings = 0;
    QMap<QString, QString> sessions;
};

bool isValue(const MqttMessage &message)
{
    return message.topic.startsWith(mail::root + "value/");
}

// A movement that was refused is told to all, with the reason.
bool tellsOfRefusal(const MqttMessage &message)
{
    return message.topic == mail::root + "value/" + welmo::names::robotState;
}

// The changes of a value that others may see, and an answer for whoever asked.
bool check(const MqttMessage &message, const QVector<MqttMessage> &sent, const QString &user)
{
    bool changed = false;
    std::optional<welmo::controller::Reply> reply;
    for (const MqttMessage &out : sent) {
        changed = changed || (isValue(out) && !tellsOfRefusal(out));
        if (out.topic.startsWith(mail::root + "reply/")) {
            require(out.topic == message.responseTopic, "an answer goes to who asked", out.topic);
            require(out.correlation == message.correlation, "and says to what", out.topic);
            require(!reply, "once", out.topic);
            reply = protocol::toReply(out);
            require(reply.has_value(), "in words that are read", out.payload);
        }
        require(!isValue(out) || protocol::toValue(out).has_value(), "what is told can be read",
                out.payload);
    }
    require(!changed || !reply || reply->ok(), "what was refused changes nothing", message.payload);
    require(!changed || user != "vera", "who may look changes nothing", message.payload);
    return changed || (reply && reply->ok());
}

} // namespace

/// Messages to a cell from its pendants, "SESSION" standing for that of the topic's user.
void fuzz(const QByteArray &input)
{
    static std::unique_ptr<Plant> plant;
    static bool dirty = true;
    if (dirty)
        plant.reset(); // the old one's client goes first
    if (!plant)
        plant = std::make_unique<Plant>();
    dirty = false;
    plant->greet("anna");
    plant->greet("vera");
    for (MqttMessage &message : mail::read(input)) {
        plant->now += 10;
        plant->service->handle(
            {welmo::controller::Request::Kind::Get, "tl_program.state"}); // time passes
        const QString user = message.topic.section('/', 4, 4);
        for (auto &[name, value] : message.properties) {
            if (value == "SESSION")
                value = plant->sessions.value(user);
        }
        Plant::takeSent();
        dirty = check(message, plant->deliver(message), user) || dirty;
    }
}
