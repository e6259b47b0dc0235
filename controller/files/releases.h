#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"
#include "schema/release.h"

namespace welmo::controller {

/// The released versions of parameter files, and how far an operator may trim each.
class Releases : public Subsystem
{
public:
    Releases(ControllerContext &context, Registry &registry);

    /// Refuses what its author may not do to a released file: save it, or weld on with its values.
    Reply refusal(const Request &request) const;

private:
    Reply write(const QString &file, const QVariant &payload);
    Reply contentFor(const schema::FileSet &set, const QString &file, const QVariant &given) const;

    ControllerContext &m_context;
};

} // namespace welmo::controller
