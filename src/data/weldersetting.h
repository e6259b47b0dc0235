#pragma once

#include "adapter/hostadapter.h"

/// The controller's setting of the welder and its copy in the module's tree.
namespace welmo::weldersetting {

/// The key's path below the node that holds the copy, such as "device_param.protocol".
QString choiceKey(const char *key);

/// Copies the switch and the choices from the controller's answer to @p tree.
void keep(QObject *sender, kelp::ModuleObject *tree, const host::Answer &setting);

} // namespace welmo::weldersetting
