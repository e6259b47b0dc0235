#pragma once

#include "controller/core/fields.h"
#include "schema/filesets.h"

namespace welmo::controller {

/// What the controller accepts of a set of files. The ranges are generous: they keep out what no
/// welder could mean, while what is sensible for the work at hand is the pendant's business.
const Fields &fieldsOf(const schema::FileSet &set);

/// What it accepts of a set of options: exactly what a pendant offers.
Fields strictFieldsOf(const schema::Set &set);

} // namespace welmo::controller
