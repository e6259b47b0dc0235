#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <functional>

class QObject;

/// Names of the robot project's speeds, zones, tools and work objects, from the host's store. Each
/// call reads the store anew: built-in entries first, then the project's, in store order, neither
/// sorted nor made unique.
class OrboData
{
public:
    /// The tool and the work object that are active on the pendant.
    static QString getCurrentTool();
    static QString getCurrentWobj();

    /// Names of all variables of type "speed", or "zone".
    static QStringList getSpeedList();
    static QStringList getZoneList();
    /// Exactly two keys, "speed" and "zone".
    static QMap<QString, QStringList> getSpeedAndZoneList();

    static QStringList getToolList();
    static QStringList getWobjList();
};

namespace welmo {

/// Runs @p action when the project, or what is active on the pendant, has changed; once for changes
/// that come together, as long as @p context lives.
void onProjectChanged(QObject *context, const std::function<void()> &action);

} // namespace welmo
