#pragma once

#include <QStringList>
#include <QVariantList>
#include <optional>

#include "instructions/move/pointpose.h"

namespace welmo::points {

/// One project point as it stands in the host's tree, under "orbo.project.point._list".
struct Point
{
    PoseValues pose{};
    PoseFrame frame{};
    QString tool{}; ///< the tool it was taught with; empty if unknown
    QString workObject{}; ///< the work object it was taught in

    bool isAt(const Point &other) const
    {
        return pose == other.pose && frame.userFrame == other.frame.userFrame
            && frame.workObject == other.frame.workObject;
    }
};

/// The robot's position, read with a tool in a work object.
struct Position
{
    PoseValues pose{};
    QVariantList joints; ///< degrees
    QString tool;
    QString workObject;
};

/// The names of the project's points, in store order.
QStringList names();
/// The point of that name; empty if the project has none.
std::optional<Point> find(const QString &name);
/// The frame of a pose that was read in @p workObject: that, with the user frame that the work
/// object belongs to; the first built-in user frame if that is not known.
PoseFrame frameOf(const QString &workObject);

/// Adds a point at @p position to the project, first on the controller, then in the host's tree,
/// and returns its name. If the controller cannot be reached or refuses, nothing is added, that is
/// reported and the name is empty. A @p wished name that is taken, or that a program line could not
/// name, is replaced by a generated one.
///
/// The point's children: "name", "id" (the same, and the key in the list), "uuid", "description",
/// "cart.pose.frame" with "pos" {x, y, z} and "ori.euler" {a, b, c}, "joint.q" (six angles), "tool"
/// and "wobj" (it was read with these), "related_frame" (always "wobj": the pose is measured in the
/// work object), "coordinate" {user, wobj} (the user frame and work object of the pose).
QString add(QObject *sender, const Position &position, const QString &wished = QString());

} // namespace welmo::points
