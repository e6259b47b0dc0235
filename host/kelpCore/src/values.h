#pragma once

#include <QPair>
#include <QString>
#include <QVariant>
#include <QVector>

namespace kelp {

using Entries = QVector<QPair<QString, QVariant>>;

/// A map's entries by key; a list's in its order, named by their "id", else by their position.
Entries entriesOf(const QVariant &variant);
/// A map, or a list of maps.
bool hasEntries(const QVariant &variant);

} // namespace kelp
