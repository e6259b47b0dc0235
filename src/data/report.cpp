#include "data/report.h"

#include <QCoreApplication>

#include <tessa/managerhelper.h>

#include "data/arcweldservice.h"

namespace welmo::report {

void error(const QObject *sender, const QString &text)
{
    tessa::ManagerHelper::instance()->throwLog(sender, QStringLiteral("error"), text);
}

void warning(const QObject *sender, const QString &text)
{
    tessa::ManagerHelper::instance()->throwLog(sender, QStringLiteral("warning"), text);
}

void info(const QObject *sender, const QString &text)
{
    tessa::ManagerHelper::instance()->throwLog(sender, QStringLiteral("info"), text);
}

bool requireConnection()
{
    const bool connected = arcweld::isConnected();
    if (!connected)
        error(nullptr, notConnected());
    return connected;
}

bool requireConnection(const QObject *sender)
{
    const bool connected = arcweld::isConnected();
    if (!connected)
        error(sender, QCoreApplication::translate("Connection", "tessa is not connected"));
    return connected;
}

QString notConnected()
{
    return QCoreApplication::translate("Connection", "tessa not connected");
}

void readFailed(const QObject *sender, const QString &what)
{
    error(sender,
          QCoreApplication::translate("ParameterFile", "%1: read parameter error").arg(what));
}

} // namespace welmo::report
