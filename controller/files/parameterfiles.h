#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"
#include "controller/files/fileset.h"

namespace welmo::controller {

/// Checks a whole file: the children, their types, and that its name is one of the set.
Reply checkedFile(const schema::FileSet &set, const QVariant &payload);

/// The numbered parameter files of every set: read, written and removed.
class ParameterFiles : public Subsystem
{
public:
    ParameterFiles(ControllerContext &context, Registry &registry);

private:
    Reply read(const schema::FileSet &set, const QString &file) const;
    Reply write(const schema::FileSet &set, const QString &file, const QVariant &payload);
    Reply remove(const schema::FileSet &set, const QVariant &payload);

    ControllerContext &m_context;
};

} // namespace welmo::controller
