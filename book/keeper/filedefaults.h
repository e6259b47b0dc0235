#pragma once

#include <QVariantMap>

#include "schema/fileset.h"

namespace welmo::book {

/// The values of a set that was never stored.
QVariantMap defaultsOf(const schema::Set &set);
/// The content of a new file of the set.
QVariantMap defaultContent(const schema::FileSet &set, const QString &file);

} // namespace welmo::book
