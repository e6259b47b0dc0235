#pragma once

#include <QPair>
#include <QString>
#include <QVariant>
#include <QVector>

namespace kelp {

using Entries = QVector<QPair<QString, QVariant>>;

/// A map's entries by key; a list's entries in its order, named by their "id", else by position.
Entries entriesOf(const QVariant &variant);
/// Whether it is a map or a list of maps.
bool hasEntries(const QVariant &variant);

} // namespace kelp
