#pragma once

#include <QIcon>
#include <QJsonValue>

#include <tessa/xservice.h>

namespace tessa {

class ThemeManager : public QObject
{
public:
    QIcon getIcon(const QString &group, const QString &name);
    QString genStyleSheet(const QString &path);
};

class ControllerManager : public QObject
{
    Q_OBJECT
public:
    QSharedPointer<kelp::ModuleObject> execRequest(const QString &command, const QString &target,
                                                   const QJsonValue &parameters, bool wait,
                                                   int timeoutMs);
    kelp::ModuleObject *cmdItemMobj(const QString &command, const QString &item);
    QSharedPointer<kelp::ModuleObject> request(const QString &command,
                                               const kelp::ModuleObject *object, int timeoutMs);

signals:
    void rcConnected();
};

class ManagerHelper : public QObject
{
public:
    static ManagerHelper *instance();
    void throwLog(const QObject *sender, const QString &level, const QString &text);
    void registQrcAlias(const QString &name);
};

} // namespace tessa
