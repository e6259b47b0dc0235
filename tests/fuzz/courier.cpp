#include "link/mqtt/mqttsession.h"

#include "controller/core/json.h"
#include "fuzz.h"
#include "mail.h"

using namespace welmo::links;
using tessa::LinkReply;
using tessa::LinkRequest;

namespace {

MqttMessage answer(const MqttMessage &request, const welmo::controller::Reply &reply)
{
    MqttMessage message = protocol::toMessage(reply);
    message.topic = request.responseTopic;
    message.correlation = request.correlation;
    return message;
}

} // namespace

/// The input is messages to a pendant that has a session, watches the weld mode and waits for one
/// answer; "reply/anna/PENDANT" stands for its topic.
void fuzz(const QByteArray &input)
{
    qint64 now = 1000;
    MqttSession courier({"localhost", 1883, false, "anna", {}, {}}, "cell", [&now] { return now; });
    int broken = 0;
    QObject::connect(&courier, &MqttSession::broken, [&broken] { ++broken; });
    QObject::connect(
        &courier, &MqttSession::notified, [](const QString &path, const QVariant &value) {
            require(path == "arc_weld.weld_mode", "nobody is told what is not watched", path);
            require(welmo::controller::isPlain(value), "what is told is plain", path);
        });
    mail::Client *client = mail::client();
    const auto hear = [client](const MqttMessage &message) { client->handlers.message(message); };
    courier.greet(1);
    hear(answer(client->sent.last(),
                welmo::controller::Reply::with(
                    QVariantMap{{"session", "s"}, {"boot", "b"}, {"time", 5000}})));
    const auto ask = [&](LinkRequest::Kind kind, const char *path) {
        auto exchange = std::make_shared<PendingCall>(LinkRequest{kind, path, {}, {}});
        courier.ask(1, exchange, 1000);
        return exchange;
    };
    const auto watch = ask(LinkRequest::Kind::Watch, "arc_weld.weld_mode");
    hear(
        answer(client->sent.last(), welmo::controller::Reply::with(QVariantMap{{"mode", "simu"}})));
    require(watch->isAnswered() && watch->wait(0).code == 0, "a session is set up");

    const auto asked = ask(LinkRequest::Kind::Get, "arc_weld.welder_state");
    const QByteArray correlation = client->sent.last().correlation;
    std::optional<welmo::controller::Reply> reply;
    const QString replies = client->sent.last().responseTopic;
    for (MqttMessage &message : mail::read(input)) {
        now += 10;
        if (message.topic == mail::root + "reply/anna/PENDANT")
            message.topic = replies;
        if (!asked->isAnswered() && message.correlation == correlation && message.topic == replies)
            reply = protocol::toReply(message);
        hear(message);
        client->handlers.pulse();
        courier.beat(1, {1});
        require(broken <= 1, "a session breaks once");
    }
    courier.leave();
    require(asked->isAnswered(), "nobody waits for ever");
    const LinkReply settled = asked->wait(0);
    require(settled.code != 0 || (reply && reply->ok() && settled.value == reply->value),
            "what was read is what was answered");
    require(settled.code == 0 || !reply || !reply->ok(), "an answer that was good is no failure");
}
