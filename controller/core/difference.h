#pragma once

#include <QVariant>

namespace welmo::controller {

/// What changed from one plain value to another: a list of maps of "at" (the dotted path of the
/// place, list items by their number from 0, empty for the whole), "old" and "new". What is missing
/// in one of the two is left out there.
QVariantList difference(const QVariant &before, const QVariant &after);

/// The inverse: what comes of @p before by these changes; nonsense for other changes than those of
/// difference(), or keys with points in them.
QVariant applied(const QVariant &before, const QVariantList &changes);

} // namespace welmo::controller
