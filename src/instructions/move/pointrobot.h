#pragma once

#include <optional>

#include "instructions/move/pointlist.h"

/// The requests to the robot that the point panels make. Every call waits for the controller's
/// answer, bounded in time; a motion is only started or ended by it, not awaited.
namespace welmo::robot {

enum class Motion { Joint, Linear };

/// Where the robot is, with @p tool seen in @p workObject; nothing when no answer came or the
/// controller refused.
std::optional<points::Position> position(const QString &tool, const QString &workObject);

/// Sends the robot to @p pose, measured in @p frame, with the tip of @p tool. False when the
/// controller did not take it.
///
/// The request "motion.move.to_point" carries "cartesian.pose.frame" with "pos" {x, y, z} and
/// "ori.euler" {a, b, c}; "movetype", "joint" or "linear"; "coordinate.user_frame" and
/// "coordinate.wobj.name"; and "tool", so that the robot goes where the program line would take it
/// whatever tool is chosen on the pendant.
bool moveTo(const PoseValues &pose, const PoseFrame &frame, const QString &tool, Motion motion);

/// False when the controller did not take it.
bool stop();

/// Adds a project point where the robot is, see points::add(). Without the controller, or when it
/// does not say where the robot is, nothing is added, that is reported and the name is empty.
QString addPointHere(QObject *sender, const QString &tool, const QString &workObject,
                     const QString &wished = QString());

} // namespace welmo::robot
