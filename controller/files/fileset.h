#pragma once

#include "controller/core/fields.h"
#include "schema/filesets.h"

namespace welmo::controller {

/// What the controller accepts in a set of files. Its ranges are wide: they refuse what no welder
/// could mean, while the pendant limits values to what is sensible.
const Fields &fieldsOf(const schema::FileSet &set);

/// What it accepts in an option set: exactly what a pendant offers.
Fields strictFieldsOf(const schema::Set &set);

} // namespace welmo::controller
