#pragma once

#include "controller/cell.h"
#include "controller/fileset.h"
#include "controller/registry.h"
#include "controller/unit.h"

namespace controller {

/// A whole file, checked: the right children of the right types, and the name of a file of the set.
Reply checkedFile(const FileSet &set, const QVariant &payload);

/// The numbered parameter files of every set: read, written and removed.
class ParameterFiles : public Unit
{
public:
    ParameterFiles(Cell &cell, Registry &registry);

private:
    Reply read(const FileSet &set, const QString &file) const;
    Reply write(const FileSet &set, const QString &file, const QVariant &payload);
    Reply remove(const FileSet &set, const QVariant &payload);

    Cell &m_cell;
};

} // namespace controller
