#pragma once

#include "book/keeper/cellwriter.h"
#include "book/records/backupfile.h"
#include "book/records/limits.h"

namespace welmo::book {

class Bookkeeper;

/// An entry that differs between a backup and the controller.
struct RestoreItem
{
    CellChange change; ///< limits have no node
    QVariant now;
    Limits limits = {};
};

/// All that a backup holds, in its present state on the controller and in the book. Empty, with a
/// line in @p problem, if a part cannot be read.
std::optional<BackupFile> collectBackup(Bookkeeper *keeper, QString *problem);

/// All entries that differ; empty, with a line in @p problem, if a part cannot be read.
std::optional<QVector<RestoreItem>> differencesTo(const BackupFile &file, Bookkeeper *keeper,
                                                  QString *problem);

/// The number of items in a list that were changed, added or removed.
int differingItems(const QVariantList &before, const QVariantList &after);

} // namespace welmo::book
