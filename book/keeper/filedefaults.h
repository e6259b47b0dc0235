#pragma once

#include <QVariantMap>

#include "schema/fileset.h"

namespace welmo::book {

/// What the set's values are where nobody has stored any.
QVariantMap defaultsOf(const schema::Set &set);
/// What a new file of the set holds.
QVariantMap defaultContent(const schema::FileSet &set, const QString &file);

} // namespace welmo::book
