#include "adapter/hostadapter.h"

#include <pando/frame.h>
#include <tessa/managerhelper.h>

namespace welmo::host {

kelp::ModuleObject *serviceTree()
{
    return xservice()->mobj();
}

tessa::ThemeManager *themeManager()
{
    return tessa::ManagerHelper::instance()->themeManager();
}

tessa::ControllerManager *controllerManager()
{
    return tessa::ManagerHelper::instance()->controllerManager();
}

pando::StatusBar *statusBar(pando::BModule *module)
{
    return instantiatedStatusBar(module);
}

bool isConfirmed(const QString &title, const QString &text, const QString &button)
{
    return tessa::ManagerHelper::instance()->execMsgOk(title, text, button);
}

bool isMissing(const kelp::ModuleObject *node)
{
    return qobject_cast<const kelp::EmptyModuleObject *>(node) != nullptr;
}

QVariant toVariant(const kelp::ModuleObject *node)
{
    return node->toVariant();
}

} // namespace welmo::host
