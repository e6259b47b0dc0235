#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"
#include "controller/files/fileset.h"

namespace welmo::controller {

/// Checks a whole file: the children, their types, and that its name is one of the set.
Reply checkedFile(const schema::FileSet &set, const QVariant &payload);

/// Removes the entries of @p node that a command's payload lists; none if one cannot be there.
Reply removeListed(ControllerContext &context, const QString &node, const QVariant &payload,
                   const std::function<bool(const QString &file)> &canBeThere);

/// The numbered parameter files of every set: read, written and removed.
class ParameterFiles : public Subsystem
{
public:
    ParameterFiles(ControllerContext &context, Registry &registry);

private:
    Reply read(const schema::FileSet &set, const QString &file) const;
    Reply write(const schema::FileSet &set, const QString &file, const QVariant &payload);

    ControllerContext &m_context;
};

} // namespace welmo::controller
