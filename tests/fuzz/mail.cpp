#include "mail.h"

namespace mail {

namespace {

std::unique_ptr<Client> s_client;

welmo::links::MqttMessage message(const QByteArray &text)
{
    welmo::links::MqttMessage message;
    const int end = text.indexOf("\n\n");
    message.payload = end < 0 ? QByteArray() : text.mid(end + 2);
    QList<QByteArray> lines = text.left(end).split('\n');
    message.topic = root + QString::fromUtf8(lines.takeFirst());
    for (const QByteArray &line : qAsConst(lines)) {
        const int colon = line.indexOf(": ");
        const QByteArray name = line.left(colon);
        const QByteArray value = line.mid(colon + 2);
        if (name == "reply")
            message.responseTopic = root + QString::fromUtf8(value);
        else if (name == "correlation")
            message.correlation = value;
        else if (name == "retained")
            message.retained = true;
        else
            message.properties.append({QString::fromUtf8(name), QString::fromUtf8(value)});
    }
    return message;
}

} // namespace

QVector<welmo::links::MqttMessage> read(const QByteArray &input)
{
    QVector<welmo::links::MqttMessage> messages;
    const QString all =
        QString::fromLatin1(input.constData(), input.size()); // keeps each byte as one character
    for (const QString &one : all.split("\n--\n"))
        messages.append(message(one.toLatin1()));
    return messages;
}

Client *client()
{
    return s_client.get();
}

} // namespace mail

// A target links this instead of the real client: it needs no thread and no broker.
namespace welmo::links {

MqttClient::MqttClient(Options options, Handlers handlers)
    : m_options(std::move(options))
    , m_handlers(std::move(handlers))
{
    mail::s_client.reset(new mail::Client{m_handlers, {}, false});
}

MqttClient::~MqttClient()
{
    mail::s_client.reset();
}

void MqttClient::Closer::operator()(mosquitto *) const { }

void MqttClient::start()
{
    mail::s_client->online = true;
    m_handlers.online();
}

void MqttClient::stop(const std::optional<MqttMessage> &)
{
    mail::s_client->online = false;
}

void MqttClient::restart() { }

bool MqttClient::publish(const MqttMessage &message)
{
    if (mail::s_client->online)
        mail::s_client->sent.append(message);
    return mail::s_client->online;
}

bool MqttClient::subscribe(const QString &, int)
{
    return true;
}

QString MqttMessage::property(const QString &name) const
{
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&name](const auto &entry) { return entry.first == name; });
    return found == properties.end() ? QString() : found->second;
}

} // namespace welmo::links
