#include "data/report.h"

#include <QCoreApplication>

#include <tessa/managerhelper.h>

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

void readFailed(const QObject *sender, const QString &what)
{
    error(sender,
          QCoreApplication::translate("ParameterFile", "%1: read parameter error").arg(what));
}

} // namespace welmo::report
