#pragma once

#include <optional>

#include "instructions/move/pointlist.h"

/// The requests to the robot that the point panels make. Every call waits for the controller's
/// answer, bounded in time; it starts or stops a motion without waiting for its end.
namespace welmo::robot {

enum class Motion { Joint, Linear };

/// The robot's position, with @p tool in @p workObject; empty if no answer came or the controller
/// refused.
std::optional<points::Position> position(const QString &tool, const QString &workObject);

/// Sends the robot to @p pose, measured in @p frame, with the tip of @p tool. False if the
/// controller did not take it.
///
/// The request "motion.move.to_point" carries "cartesian.pose.frame" with "pos" {x, y, z} and
/// "ori.euler" {a, b, c}; "movetype", "joint" or "linear"; "coordinate.user_frame" and
/// "coordinate.wobj.name"; and "tool", so that the robot goes where the program line would take it,
/// whatever tool is active on the pendant.
bool moveTo(const PoseValues &pose, const PoseFrame &frame, const QString &tool, Motion motion);

/// False if the controller did not take it.
bool stop();

/// Adds a project point where the robot is, see points::add(). If the controller does not say where
/// that is, nothing is added, that is reported and the name is empty.
QString addPointHere(QObject *sender, const QString &tool, const QString &workObject,
                     const QString &wished = QString());

} // namespace welmo::robot
