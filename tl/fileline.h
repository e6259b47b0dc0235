#pragma once

#include <QStringList>
#include <optional>
#include <vector>

#include "tl/instruction.h"

namespace welmo::tl {

/// What a line that names parameter files says: ArcOn (an arc-start and a welding file), ArcOff,
/// WeaveOn and SegOn (one file each).
struct FileLine
{
    /// One entry for each file that the instruction names, empty where none was recognised; the
    /// names are spelled as in the table of files.
    std::vector<std::optional<QString>> files;
    QStringList names; ///< what stands in the quotes, a file or not, up to the first without quotes
    std::vector<int> columns; ///< where the arguments stand; empty for a wrong number of them
    Problems problems; ///< in the order in which they are to be reported
};

/// Reads the line; its first word is not looked at. The arguments' quotes are checked first, then
/// the names are looked up among the 40 of their set (ArcOn and ArcOff: in either case); the first
/// problem stops, and what was recognised before it stays.
FileLine parseFileLine(Instruction instruction, const QString &line);

/// "ArcOn "arcondata1","arcdata1"". Names are made safe, see nameText().
QString formatFileLine(Instruction instruction, const QStringList &files);

/// The names that the argument @p argument, counted from 0, can have; none beyond the last.
QStringList fileNames(Instruction instruction, int argument);

/// The names of the 40 weave files, which moves can name as well.
const QStringList &weaveFileNames();

} // namespace welmo::tl
