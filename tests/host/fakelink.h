#pragma once

#include <QJsonDocument>
#include <QMap>
#include <QVector>
#include <functional>

#include "tessa/controllerlink.h"
#include "tessa/xservice.h"

/// A controller that answers from a table of nodes and commands. Whatever the table lacks is a node
/// without a value.
class FakeLink : public tessa::ControllerLink
{
    Q_OBJECT
public:
    using Kind = tessa::LinkRequest::Kind;

    tessa::LinkReply call(const tessa::LinkRequest &request, int timeoutMs) override
    {
        if (!isUp())
            return {tessa::LinkReply::NotConnected, {}};
        const QString entry = QStringList{request.path, request.key}.join(' ').trimmed();
        QString line = QStringLiteral("GSWC").at(int(request.kind)) + ' ' + entry;
        if (request.payload.isValid())
            line +=
                ' ' + QJsonDocument::fromVariant(request.payload).toJson(QJsonDocument::Compact);
        if (timeoutMs != XService::defaultTimeoutMs)
            line += QStringLiteral(" %1 ms").arg(timeoutMs);
        log.append(line);
        if (duringCall)
            duringCall(request);
        const tessa::LinkReply reply = answers.value(entry);
        if (!reply.fromController())
            up = false;
        return reply;
    }
    void open() override { opened = true; }
    void close() override { setUp(false); }
    bool isUp() const override { return up; }
    void beat(const QVector<int> &presses) override { beats.append(!presses.isEmpty()); }

    void setUp(bool on)
    {
        up = on;
        emit upChanged(on);
    }
    void node(const QString &path, const QVariant &value) { answers[path] = {0, value}; }
    void fail(const QString &path, int code) { answers[path] = {code, {}}; }

    QMap<QString, tessa::LinkReply> answers;
    QStringList log; ///< a line for each call: kind, path, key, payload, an unusual time limit
    QVector<bool> beats; ///< whether a key was held, newest last
    bool up = false;
    bool opened = false;
    std::function<void(const tessa::LinkRequest &)> duringCall;
};
