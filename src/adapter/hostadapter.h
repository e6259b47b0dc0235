#pragma once

#include <QString>
#include <QVariant>
#include <utility>

#include <tessa/xservice.h>

namespace pando {
class BModule;
class StatusBar;
} // namespace pando

namespace tessa {
class ControllerManager;
class ThemeManager;
} // namespace tessa

/// What the package needs of a host beyond the calls that every such host is known to have, and
/// whose names and types are therefore this host's own. Another host may call for another source
/// file behind this header, and for nothing else.
namespace welmo::host {

/// What the service hands back: some kind of pointer to a node.
using Answer = decltype(std::declval<XService>().get(nullptr, QString()));

/// The service's own tree, with the leaf "connected".
kelp::ModuleObject *serviceTree();
tessa::ThemeManager *themeManager();
tessa::ControllerManager *controllerManager();
/// Null where the host has none.
pando::StatusBar *statusBar(pando::BModule *module);

/// The host's one-button message box; true when the button was pressed.
bool isConfirmed(const QString &title, const QString &text, const QString &button);

/// True for what a lookup yields where there is no node.
bool isMissing(const kelp::ModuleObject *node);
/// The value of a leaf, or a map of the children's; invalid for an empty node.
QVariant toVariant(const kelp::ModuleObject *node);

} // namespace welmo::host
