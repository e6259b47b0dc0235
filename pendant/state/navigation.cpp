#include "pendant/state/navigation.h"

#include <QCoreApplication>

#include "vu/xnav.h"

namespace welmo::pendant {

QString groupTitle(const QString &group)
{
    if (group == mainGroup)
        return QCoreApplication::translate("welmo::pendant::NavPanel", "Pendant");
    if (group == packageGroup)
        return QCoreApplication::translate("welmo::pendant::NavPanel", "Packages");
    if (group == systemGroup)
        return QCoreApplication::translate("welmo::pendant::NavPanel", "System");
    return group;
}

void addNavEntry(const QString &page, const QString &title, const QString &group,
                 const QString &picture, int position)
{
    kelp::ModuleObject *entry = vu::xnav::registerPage(nullptr, title, group, QString(), position);
    entry->set(nullptr, QStringLiteral("nav"), page);
    entry->set(nullptr, QStringLiteral("key"), page.section(QLatin1Char('.'), -1));
    entry->set(nullptr, QStringLiteral("icon"), picture);
}

} // namespace welmo::pendant
