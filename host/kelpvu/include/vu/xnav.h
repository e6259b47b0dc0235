#pragma once

#include <QString>

#include "kelp/moduleobject.h"

namespace pando {
class BModule;
}

namespace vu::xnav {

/// The path of the navigation entries in the application-wide tree, in the order of their
/// registration; the menu itself sorts them by position.
inline const QString entriesPath = QStringLiteral("vu.nav");

/// Adds an entry to the pendant's navigation menu and returns it. Its children: "title", "group"
/// (the menu section), "parent" (the path of the entry above it, empty at the top), "position" (-1:
/// at the end) and "owner". The caller sets "nav", the key of the page that the entry shows in the
/// centre area, and "key", a fixed name for scripts.
kelp::ModuleObject *registerPage(pando::BModule *owner, const QString &title, const QString &group,
                                 const QString &parentPath, int position);

} // namespace vu::xnav
