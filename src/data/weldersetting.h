#pragma once

#include "adapter/hostadapter.h"

/// The controller's setting of the welder and its copy in the module's tree.
namespace welmo::weldersetting {

/// Below the node that holds the copy: "device_param.protocol" and its like.
QString choiceKey(const char *key);

/// Copies switch and choices of the controller's answer below @p tree.
void keep(QObject *sender, kelp::ModuleObject *tree, const host::Answer &setting);

} // namespace welmo::weldersetting
