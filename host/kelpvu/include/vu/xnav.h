#pragma once

#include <QString>

#include "kelp/moduleobject.h"

namespace pando {
class BModule;
}

namespace vu::xnav {

/// Path in the application-wide tree below which the navigation entries stand, in the order in
/// which they were registered; whoever shows the menu heeds their positions.
inline const QString entriesPath = QStringLiteral("vu.nav");

/// Adds an entry to the pendant's navigation menu and returns it. Its children: "title", "group"
/// (the menu section), "parent" (path of the entry above it, empty at the top), "position" (-1: at
/// the end) and "owner". The caller sets "nav", the page key that the centre area is switched to
/// when the entry is chosen, and "key", a fixed name for scripts.
kelp::ModuleObject *registerPage(pando::BModule *owner, const QString &title, const QString &group,
                                 const QString &parentPath, int position);

} // namespace vu::xnav
