#pragma once

#include <kelp/moduleobject.h>

namespace vu::calc {

void toolreltool(const kelp::ModuleObject *, const kelp::ModuleObject *, kelp::ModuleObject *);

} // namespace vu::calc
