#pragma once

#include <kelp/moduleobject.h>

namespace pando {
class BModule;
}

namespace vu::xnav {

kelp::ModuleObject *registerPage(pando::BModule *owner, const QString &title, const QString &group,
                                 const QString &parentPath, int position);

} // namespace vu::xnav
