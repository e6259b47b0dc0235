#pragma once

#include <QJsonValue>
#include <QObject>

#include "kelp/moduleobject.h"
#include "tessa/xservice.h"

namespace tessa {

/// Motion-level requests to the controller, and the news that it is there.
class ControllerManager : public QObject
{
    Q_OBJECT
public:
    explicit ControllerManager(XService *service, QObject *parent = nullptr);

    /// A synchronous request: @p command with "target" and "parameters". With @p wait false only
    /// the acceptance is awaited, which this host answers as fast. The answer is XService's.
    XService::Answer execRequest(const QString &command, const QString &target,
                                 const QJsonValue &parameters, bool wait, int timeoutMs);

    /// The part @p item ("request") of a command's local object, made when missing; it belongs to
    /// the manager and keeps what was set before.
    kelp::ModuleObject *cmdItemMobj(const QString &command, const QString &item);
    /// Sends a command with @p object, or with the "request" part of its local object when null.
    XService::Answer request(const QString &command, const kelp::ModuleObject *object,
                             int timeoutMs);

signals:
    /// The controller link has (re)connected; pages reload from the controller.
    void rcConnected();

private:
    XService *m_service;
    kelp::ModuleObject m_commands;
};

} // namespace tessa
