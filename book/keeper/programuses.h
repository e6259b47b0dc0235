#pragma once

#include <QHash>
#include <QString>
#include <QVector>

namespace welmo::book {

/// Where a program names a parameter file.
struct ProgramUse
{
    QString program;
    QVector<int> lines; ///< from 1
};
/// By the file's name.
using ProgramUses = QHash<QString, QVector<ProgramUse>>;

/// Reads every program in the folder. It is slow: not for the GUI thread.
ProgramUses readProgramUses(const QString &folder);

/// "vgroove.tl 6, 9; pipe.tl 3"
QString usesText(const QVector<ProgramUse> &uses);

} // namespace welmo::book
