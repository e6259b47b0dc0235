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
    QString tool{}; ///< it was taught with this one; empty when that is not known
    QString workObject{}; ///< and in this one

    bool isAt(const Point &other) const
    {
        return pose == other.pose && frame.userFrame == other.frame.userFrame
            && frame.workObject == other.frame.workObject;
    }
};

/// Where the robot is, seen with a tool in a work object.
struct Position
{
    PoseValues pose{};
    QVariantList joints; ///< degrees
    QString tool;
    QString workObject;
};

/// The names of the project's points, in store order.
QStringList names();
/// The point of that name; nothing when the project has none.
std::optional<Point> find(const QString &name);
/// Where a pose is measured when it was read in @p workObject: there, and in the user frame that
/// the work object stands in; in the first built-in one when that is not known.
PoseFrame frameOf(const QString &workObject);

/// Adds a point at @p position to the project, on the controller first and then in the host's tree,
/// and returns its name. When the controller cannot be reached, or refuses, nothing is added, that
/// is reported and the name is empty. A @p wished name that is taken, or that a program
/// line could not name, gives way to a generated one.
///
/// The point's children: "name", "id" (the same, and the key in the list), "uuid", "description",
/// "cart.pose.frame" with "pos" {x, y, z} and "ori.euler" {a, b, c}, "joint.q" (six angles), "tool"
/// and "wobj" (read with these), "related_frame" (always "wobj": the pose is measured in the work
/// object), "coordinate" {user, wobj} (the user frame and work object of the pose).
QString add(QObject *sender, const Position &position, const QString &wished = QString());

} // namespace welmo::points
