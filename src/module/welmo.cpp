#include "module/welmo.h"

#include <QDateTime>

#include <kelp/qflog.h>
#include <kelp/registry.h>
#include <kelp/translationmanager.h>
#include <pando/frame.h>
#include <tessa/managerhelper.h>
#include <vu/paths.h>
#include <vu/xnav.h>

#include "page/arcweldpage.h"
#include "page/monitorpage.h"

namespace {

const QString moduleName = QStringLiteral("welmo");
const QString pageKey = QStringLiteral("welmo.page");

} // namespace

Welmo::Welmo(QObject *parent)
    : BModule(parent)
{
    writeStartLine();
    translator()->installQMTranslator(
        vu::languagePath(moduleName + QStringLiteral("_cn"), {}, moduleName));
    tessa::ManagerHelper::instance()->registQrcAlias(moduleName);
    bindMobjJson(moduleName, vu::templatePath(moduleName, moduleName), true);
    mobj()->set(this, QStringLiteral("version"), welmo::version(), true);
}

void Welmo::writeStartLine() const
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("MM/dd hh:mm:ss.zzz"));
    kelp::QFLog log(QStringLiteral("\033[35m"), QStringLiteral("[S|%1]").arg(now),
                    QStringLiteral("./log/%1").arg(moduleName), QStringLiteral("log"), QString());
    log << QStringLiteral("welmo v%1").arg(welmo::version());
}

QString Welmo::name() const
{
    return moduleName;
}

void Welmo::init()
{
    kelp::ModuleObject *entry =
        vu::xnav::registerPage(this, tr("Arc Weld"), QStringLiteral("robot.pack"), QString(), -1);
    entry->set(this, QStringLiteral("nav"), pageKey, true);
    entry->set(this, QStringLiteral("key"), QStringLiteral("arcweldpackage"), true);
}

void Welmo::setup()
{
    pando::CenterWidget *center = instantiatedCenterWidget(this);
    auto *page = new ArcWeldPage(center, this);
    addSubmodule(page);
    center->addPage(this, pageKey, page->wgt());

    pando::ExpandSideBar *sideBar = instantiatedRightExpandSideWidget(this);
    if (!sideBar)
        return;
    auto *monitor = new MonitorPage(sideBar, this);
    addSubmodule(monitor);
    sideBar->addPage(this, pageKey, monitor->wgt());
}

QString welmo::version()
{
    // The version counts from the host's first five class versions on.
    const int patch = ver(moduleName, true) - 5;
    return mName(QString::number(1), QString::number(1), QString::number(patch));
}

QString welmo::api()
{
    return version();
}
