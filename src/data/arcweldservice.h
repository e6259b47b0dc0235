#pragma once

#include <QString>
#include <functional>

#include <tessa/xservice.h>

#include "adapter/hostadapter.h"

/// What every page needs of the controller besides XService itself.
namespace welmo::arcweld {

/// Whether the controller link is up; every save, enable and file change asks first.
bool isConnected();

/// Runs @p action each time the link has come up, as long as @p context lives.
void onConnected(QObject *context, const std::function<void()> &action);
/// The same for a link that was lost.
void onDisconnected(QObject *context, const std::function<void()> &action);

/// The controller's name for one of the arc-welding service's nodes or commands.
inline QString node(const QString &name)
{
    return QStringLiteral("arc_weld.%1").arg(name);
}

/// The welder's state in words ("ok", "disabled", "error"); empty when it is not known.
QString welderState(QObject *sender);

/// True if the read itself failed, which does not say whether the node exists.
inline bool readFailed(const host::Answer &answer)
{
    return answer->getInt(0) != 0;
}

} // namespace welmo::arcweld
