#pragma once

#include "book/keeper/cellwriter.h"
#include "book/records/backupfile.h"
#include "book/records/limits.h"

namespace welmo::book {

class Bookkeeper;

/// A place that is not the same in a backup and on the controller.
struct RestoreItem
{
    CellChange change; ///< without a node: limits
    QVariant now;
    Limits limits = {};
};

/// All that a backup holds, as the controller and the book have it now. Nothing, with a line, when
/// a part cannot be read.
std::optional<BackupFile> collectBackup(Bookkeeper *keeper, QString *problem);

/// What differs, place by place; nothing with a line.
std::optional<QVector<RestoreItem>> differencesTo(const BackupFile &file, Bookkeeper *keeper,
                                                  QString *problem);

/// How many items of a list are not the same, not there or not there any more.
int differingItems(const QVariantList &before, const QVariantList &after);

} // namespace welmo::book
