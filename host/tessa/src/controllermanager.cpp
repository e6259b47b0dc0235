#include "tessa/controllermanager.h"

namespace tessa {

ControllerManager::ControllerManager(XService *service, QObject *parent)
    : QObject(parent)
    , m_service(service)
    , m_commands(QStringLiteral("commands"))
{
    connect(service, &XService::cameUp, this, &ControllerManager::rcConnected);
}

XService::Answer ControllerManager::execRequest(const QString &command, const QString &target,
                                                const QJsonValue &parameters, bool wait,
                                                int timeoutMs)
{
    const QVariantMap payload{{QStringLiteral("target"), target},
                              {QStringLiteral("parameters"), parameters.toVariant()},
                              {QStringLiteral("wait"), wait}};
    return m_service->exchange({LinkRequest::Kind::Command, command, {}, payload}, timeoutMs);
}

kelp::ModuleObject *ControllerManager::cmdItemMobj(const QString &command, const QString &item)
{
    // The command's name contains points, so it is a child's name and not a path.
    return m_commands.c(command, true)->c(item, true);
}

XService::Answer ControllerManager::request(const QString &command,
                                            const kelp::ModuleObject *object, int timeoutMs)
{
    const auto *payload = object ? object : cmdItemMobj(command, QStringLiteral("request"));
    return m_service->exchange(
        {LinkRequest::Kind::Command, command, payload->name(), payload->toVariant()}, timeoutMs);
}

} // namespace tessa
