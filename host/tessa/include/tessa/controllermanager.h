#pragma once

#include <QJsonValue>
#include <QObject>

#include "kelp/moduleobject.h"
#include "tessa/xservice.h"

namespace tessa {

/// Motion requests to the controller, and the signal that the link is up.
class ControllerManager : public QObject
{
    Q_OBJECT
public:
    explicit ControllerManager(XService *service, QObject *parent = nullptr);

    /// Sends @p command with "target" and "parameters" and waits for the answer. Without @p wait
    /// only acceptance would be waited for, which takes this host the same time. Returns XService's
    /// answer.
    XService::Answer execRequest(const QString &command, const QString &target,
                                 const QJsonValue &parameters, bool wait, int timeoutMs);

    /// The part @p item ("request") of a command's local object, made if missing; the manager owns
    /// it, and it keeps its values between requests.
    kelp::ModuleObject *cmdItemMobj(const QString &command, const QString &item);
    /// Sends a command with @p object, or if that is null with the "request" part of its local
    /// object.
    XService::Answer request(const QString &command, const kelp::ModuleObject *object,
                             int timeoutMs);

signals:
    /// The link is up, for the first time or again; pages reload from the controller.
    void rcConnected();

private:
    XService *m_service;
    kelp::ModuleObject m_commands;
};

} // namespace tessa
