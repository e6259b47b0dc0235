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

/// What the package uses of a host whose names or types another host may lack. Another host needs
/// another source file behind this header; nothing else changes.
namespace welmo::host {

/// The type of a service's answer: some kind of pointer to a node.
using Answer = decltype(std::declval<XService>().get(nullptr, QString()));

/// The service's own tree, with the leaf "connected".
kelp::ModuleObject *serviceTree();
tessa::ThemeManager *themeManager();
tessa::ControllerManager *controllerManager();
/// The window's status bar; null if the host has none.
pando::StatusBar *statusBar(pando::BModule *module);

/// Shows the host's one-button message box; true when the button was pressed.
bool isConfirmed(const QString &title, const QString &text, const QString &button);

/// True if a look-up found no node.
bool isMissing(const kelp::ModuleObject *node);
/// The value of a leaf, or a map of the children's; invalid for an empty node.
QVariant toVariant(const kelp::ModuleObject *node);

} // namespace welmo::host
