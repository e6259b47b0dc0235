#pragma once

#include <QHash>
#include <QMutex>
#include <QtTest>

#include "link/wire.h"
#include "linkwords.h"

/// A client that sends whatever it is told to.
class RawClient
{
public:
    RawClient(const links::BrokerAddress &address, QString user)
        : m_user(std::move(user))
        , m_client({address, "raw-" + m_user},
                   {[this] {
                        m_client.subscribe(replyTopic(), 1);
                        m_client.subscribe(topics.value("#"), 0);
                    },
                    [](const QString &) {},
                    [this](const links::MqttMessage &message) { keep(message); }})
    {
        m_client.start();
        (void)QTest::qWaitFor([this] { return m_client.isOnline(); }, patient);
    }
    ~RawClient() { m_client.stop(); }

    const links::wire::Topics topics{"cell"};

    QString replyTopic() const { return topics.reply(m_user, "raw-" + m_user); }
    void publish(const links::MqttMessage &message) { m_client.publish(message); }
    /// The request as a message that is ready to be sent, and sent again.
    links::MqttMessage message(const controller::Request &content) const
    {
        links::wire::Request request{false, m_session, m_sequence, m_deadline, content};
        request.hello = m_session.isEmpty();
        links::MqttMessage made = links::wire::toMessage(request);
        made.topic = topics.request(m_user);
        made.responseTopic = replyTopic();
        return made;
    }
    links::MqttMessage next(const controller::Request &content)
    {
        ++m_sequence;
        return message(content);
    }
    /// Sends it and waits for the answer; nothing when there is none.
    std::optional<controller::Reply> exchange(links::MqttMessage message, int timeoutMs = patient)
    {
        message.correlation = QByteArray::number(++m_correlation);
        publish(message);
        (void)QTest::qWaitFor([&] { return has(message.correlation); }, timeoutMs);
        const QMutexLocker lock(&m_mutex);
        return m_replies.contains(message.correlation)
            ? links::wire::toReply(m_replies.value(message.correlation))
            : std::nullopt;
    }
    int ask(const controller::Request &content) { return exchange(next(content))->code; }
    bool greet()
    {
        m_session.clear();
        std::optional<controller::Reply> reply;
        for (int tries = 0; tries < 100 && !reply; ++tries) // there may be no cell yet
            reply = exchange(message({}), 100);
        const QVariantMap values = reply ? reply->value.toMap() : QVariantMap();
        m_session = values.value("session").toString();
        m_deadline = values.value("time").toLongLong() + patient;
        return !m_session.isEmpty();
    }
    void setSession(const QString &session) { m_session = session; }
    void setDeadline(qint64 deadline) { m_deadline = deadline; }
    void setSequence(qint64 sequence) { m_sequence = sequence; }
    /// What came on any other topic, by topic.
    QHash<QString, QByteArray> others() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_others;
    }

private:
    void keep(const links::MqttMessage &message)
    {
        const QMutexLocker lock(&m_mutex);
        if (message.topic == replyTopic())
            m_replies.insert(message.correlation, message);
        else
            m_others.insert(message.topic, message.payload);
    }
    bool has(const QByteArray &correlation) const
    {
        const QMutexLocker lock(&m_mutex);
        return m_replies.contains(correlation);
    }

    const QString m_user;
    mutable QMutex m_mutex;
    QHash<QByteArray, links::MqttMessage> m_replies;
    QHash<QString, QByteArray> m_others;
    QString m_session;
    qint64 m_sequence = 0;
    qint64 m_deadline = 0;
    int m_correlation = 0;
    links::MqttClient m_client; // last: its thread ends first
};
