#include "data/report.h"

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

} // namespace welmo::report
