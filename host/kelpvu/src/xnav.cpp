#include "vu/xnav.h"

#include "kelp/workspace.h"
#include "pando/bmodule.h"

namespace vu::xnav {

kelp::ModuleObject *registerPage(pando::BModule *owner, const QString &title, const QString &group,
                                 const QString &parentPath, int position)
{
    auto *node = kelp::Workspace::current()->root()->make(entriesPath);
    auto *entry = node->c(kelp::ModuleObject::generateId(node, QStringLiteral("entry")), true);
    entry->set(owner, QStringLiteral("title"), title);
    entry->set(owner, QStringLiteral("group"), group);
    entry->set(owner, QStringLiteral("parent"), parentPath);
    entry->set(owner, QStringLiteral("position"), position);
    entry->set(owner, QStringLiteral("owner"), owner ? owner->name() : QString());
    return entry;
}

} // namespace vu::xnav
