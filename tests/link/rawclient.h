#pragma once

#include <QHash>
#include <QtTest>

#include "link/mqtt/mqttclient.h"
#include "link/protocol/protocol.h"
#include "linkwords.h"

/// A client that sends whatever it is told to.
struct RawClient
{
    /// @p id is its client id at the broker; empty: one made from the name.
    RawClient(const welmo::links::BrokerAddress &address, const QString &name,
              const QString &id = {})
        : user(name)
        , m_client({address, id.isEmpty() ? "raw-" + user : id},
                   {[this] {
                        m_client.subscribe(replyTopic(), 1);
                        m_client.subscribe(topics.value("#"), 0);
                    },
                    [](const QString &, bool) {},
                    [this](const welmo::links::MqttMessage &message) {
                        QMetaObject::invokeMethod(&m_here, [this, message] {
                            got.insert({message.topic, message.correlation}, message);
                        });
                    }})
    {
        m_client.start();
        (void)QTest::qWaitFor([this] { return m_client.isOnline(); }, patient);
    }
    ~RawClient() { m_client.stop(); }

    bool isOnline() const { return m_client.isOnline(); }
    QString replyTopic() const { return topics.reply(user, "raw-" + user); }
    void publish(const welmo::links::MqttMessage &message) { m_client.publish(message); }
    /// The request as a message, which can also be sent more than once.
    welmo::links::MqttMessage message(const welmo::controller::Request &content) const
    {
        welmo::links::MqttMessage made =
            welmo::links::protocol::toMessage(welmo::links::protocol::Request{
                session.isEmpty(), session, sequence, deadline, content});
        made.topic = topics.request(user);
        made.responseTopic = replyTopic();
        return made;
    }
    welmo::links::MqttMessage next(const welmo::controller::Request &content)
    {
        ++sequence;
        return message(content);
    }
    /// Sends the message and waits for the answer.
    std::optional<welmo::controller::Reply> exchange(welmo::links::MqttMessage message,
                                                     int timeoutMs = patient)
    {
        message.correlation = QByteArray::number(++m_correlation);
        publish(message);
        const QPair<QString, QByteArray> reply{replyTopic(), message.correlation};
        (void)QTest::qWaitFor([&] { return got.contains(reply); }, timeoutMs);
        return got.contains(reply) ? welmo::links::protocol::toReply(got.value(reply))
                                   : std::nullopt;
    }
    welmo::controller::Reply ask(const welmo::controller::Request &content)
    {
        return *exchange(next(content));
    }
    bool greet()
    {
        std::optional<welmo::controller::Reply> reply;
        for (int tries = 0; tries < 100 && !reply; ++tries) // the cell may not be up yet
            reply = exchange(message({}), 100);
        const QVariantMap values = reply ? reply->value.toMap() : QVariantMap();
        session = values.value("session").toString();
        deadline = values.value("time").toLongLong() + patient;
        return !session.isEmpty();
    }

    const QString user;
    const welmo::links::protocol::Topics topics{"cell"};
    QString session;
    qint64 sequence = 0;
    qint64 deadline = 0;
    QHash<QPair<QString, QByteArray>, welmo::links::MqttMessage> got; // by topic and correlation

private:
    QObject m_here; // receives on the thread of the test
    int m_correlation = 0;
    welmo::links::MqttClient m_client; // the last member, so that its thread ends first
};
