#pragma once

#include <QStringList>

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"

namespace welmo::controller {

/// The robot project: variables, tools, work objects, points and user frames as lists of maps {id,
/// name, ...} in their own order; the inputs and outputs; the choices on the tool page.
///
/// The lists are the entries of one node ("tool._list" and so on); a read without a key returns
/// them as nested maps. The built-in lists ("tool.system_list") cannot be written.
class Project : public Subsystem
{
public:
    Project(ControllerContext &context, Registry &registry);

    Reply start() override;

private:
    Reply readLists(const QString &key) const;
    Reply writeList(const QString &key, const QVariant &payload);
    Reply choose(const QVariant &payload);
    QStringList namesIn(const QString &kind) const;

    ControllerContext &m_context;
};

} // namespace welmo::controller
