#pragma once

#include <QCoreApplication>

#include "../fuzz/mail.h"
#include "link/mqtt/cellservice.h"

/// A cell on a clock that the test turns, without a thread and a broker.
struct SimulatedCell
{
    qint64 now = 1000;
    std::unique_ptr<welmo::links::CellService> service;

    explicit SimulatedCell(const QString &dataFolder = {})
    {
        welmo::links::CellService::Options options;
        options.cell = QStringLiteral("cell");
        options.dataFolder = dataFolder;
        options.roles = welmo::links::Roles(
            {{"anna", welmo::links::Role::Administrator}, {"vera", welmo::links::Role::Viewer}});
        options.clock = [this] { return now; };
        service = std::make_unique<welmo::links::CellService>(options);
        service->start();
        QCoreApplication::sendPostedEvents(); // the news that it is online
    }
    ~SimulatedCell() { service.reset(); } // which reads the clock to its end

    /// Hands the message to the cell; what the cell publishes then.
    QVector<welmo::links::MqttMessage> deliver(const welmo::links::MqttMessage &message)
    {
        mail::client()->handlers.message(message);
        QCoreApplication::processEvents();
        return takeSent();
    }
    static QVector<welmo::links::MqttMessage> takeSent()
    {
        return std::exchange(mail::client()->sent, {});
    }
};

/// A pendant of such a cell: makes the messages that it sends, and finds the answers to them.
struct SimulatedPendant
{
    QString client = QStringLiteral("pendant");
    QString session = {};
    qint64 sequence = 0;
    QString user = QStringLiteral("anna");

    welmo::links::MqttMessage hello(const QString &greeting)
    {
        welmo::links::protocol::Request request;
        request.hello = true;
        request.content.key = greeting;
        return addressed(toMessage(request));
    }
    welmo::links::MqttMessage request(const welmo::controller::Request &content, qint64 deadline)
    {
        return addressed(toMessage(
            welmo::links::protocol::Request{false, session, ++sequence, deadline, content}));
    }
    welmo::links::MqttMessage beat(const QVector<int> &presses, qint64 time)
    {
        auto message =
            toMessage(welmo::links::protocol::Beat{session, ++sequence, time, presses, false});
        message.topic = mail::root + "beat/" + user;
        return message;
    }
    welmo::links::MqttMessage end() const
    {
        auto message = toMessage(welmo::links::protocol::Beat{client, 0, 0, {}, true});
        message.topic = mail::root + "beat/" + user;
        return message;
    }
    QString replyTopic() const { return mail::root + "reply/" + user + '/' + client; }
    /// The first answer to this pendant among the messages.
    std::optional<welmo::controller::Reply>
    answerIn(const QVector<welmo::links::MqttMessage> &messages) const
    {
        for (const auto &message : messages) {
            if (message.topic == replyTopic())
                return welmo::links::protocol::toReply(message);
        }
        return {};
    }

private:
    welmo::links::MqttMessage addressed(welmo::links::MqttMessage message) const
    {
        message.topic = mail::root + "request/" + user;
        message.responseTopic = replyTopic();
        return message;
    }
};
