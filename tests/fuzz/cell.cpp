#include "controller/core/json.h"
#include "fuzz.h"
#include "link/simulatedcell.h"
#include "schema/names.h"

using namespace welmo::links;

namespace {

/// A cell with two pendants: anna may do everything, vera may only look.
struct Plant : SimulatedCell
{
    /// Starts a new session, for each input has its own.
    void greet(const QString &user)
    {
        SimulatedPendant pendant;
        pendant.user = user;
        now += 1000; // else the cell takes the greetings of many inputs for a flood
        const auto reply = pendant.answerIn(deliver(pendant.hello(QString::number(++greetings))));
        require(reply && reply->ok(), "a greeting is answered", user);
        sessions.insert(user, reply->value.toMap().value("session").toString());
    }
    int greetings = 0;
    QMap<QString, QString> sessions;
};

bool isValue(const MqttMessage &message)
{
    return message.topic.startsWith(mail::root + "value/");
}

// The cell tells all users when it refuses a movement, and why.
bool tellsOfRefusal(const MqttMessage &message)
{
    return message.topic == mail::root + "value/" + welmo::names::robotState;
}

// Checks what the cell sent because of the message; true when it carried the
// message out.
bool check(const MqttMessage &message, const QVector<MqttMessage> &sent, const QString &user)
{
    bool changed = false;
    std::optional<welmo::controller::Reply> reply;
    for (const MqttMessage &out : sent) {
        changed = changed || (isValue(out) && !tellsOfRefusal(out));
        if (out.topic.startsWith(mail::root + "reply/")) {
            require(out.topic == message.responseTopic, "an answer goes to who asked", out.topic);
            require(out.correlation == message.correlation, "an answer names the question",
                    out.topic);
            require(!reply, "a question is answered once", out.topic);
            reply = protocol::toReply(out);
            require(reply.has_value(), "an answer can be read", out.payload);
        }
        require(!isValue(out) || protocol::toValue(out).has_value(),
                "a value that is told can be read", out.payload);
    }
    require(!changed || !reply || reply->ok(), "what was refused changes nothing", message.payload);
    require(!changed || user != "vera", "who may only look changes nothing", message.payload);
    return changed || (reply && reply->ok());
}

} // namespace

/// The input is messages to a cell from its pendants; "SESSION" stands for the session of the user
/// in the topic.
void fuzz(const QByteArray &input)
{
    static std::unique_ptr<Plant> plant;
    static bool dirty = true;
    if (dirty)
        plant.reset(); // before the new one is made: there is only one client
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
