#pragma once

#include <QVariant>

namespace welmo::controller {

/// What changed from one plain value to another: a list of maps of "at" (the dotted path of the
/// place, list items by their number from 0, empty for the whole value), "old" and "new". "old" or
/// "new" is left out if the place is missing on that side.
QVariantList difference(const QVariant &before, const QVariant &after);

/// The inverse: @p before with these changes made. The changes must come from difference(), and
/// keys must not contain points.
QVariant applied(const QVariant &before, const QVariantList &changes);

} // namespace welmo::controller
