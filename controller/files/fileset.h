#pragma once

#include "controller/core/fields.h"

namespace welmo::controller {

/// A set of numbered parameter files, kept under "arc_weld." and its name.
struct FileSet
{
    static constexpr int fileCount = 40;

    QString name;
    QString prefix; ///< a file's name is the prefix and its number, 1 to fileCount
    bool removable;
    Fields fields;

    QString path() const;
    /// True for a name that a file of the set can have.
    bool hasFile(const QString &file) const;
};

/// Every set that the controller keeps. The ranges are generous: they keep out what no welder could
/// mean, while what is sensible for the work at hand is the pendant's business.
const std::vector<FileSet> &fileSets();

/// The sets that a weld uses. Welding data can also be made active without being stored.
const FileSet &arcOnSet();
const FileSet &weldSet();
const FileSet &arcOffSet();
const FileSet &weaveSet();

} // namespace welmo::controller
