#pragma once

#include "controller/cell.h"
#include "controller/registry.h"
#include "controller/robotmotion.h"
#include "controller/unit.h"

namespace controller {

/// The robot: where it is, moving it to a point by hand, and stopping it. It starts where it was
/// built, not where it was left: the arm has no memory of its own.
///
/// "tl_program.get_rob_pos" takes "parameters" {tool, wobj} and answers the tool's tip in the work
/// object as "pose.frame" (pos x, y, z in millimetres; ori.euler a, b, c in degrees), and the six
/// joints in degrees as "q".
///
/// "motion.move.to_point" takes "cartesian.pose.frame" in the frame of "coordinate" {user_frame,
/// wobj.name}, where "default" stands for the base, or for the work object's own user frame;
/// "movetype" is "joint" or "linear". "tool" is the tool whose tip goes there, without it the one
/// chosen on the tool page. While the robot moves, another move is refused.
///
/// "motion.move.stop" stops at once, whatever the payload says, and also while nothing moves.
class Robot : public Unit
{
public:
    Robot(Cell &cell, Registry &registry);

    void tick() override { m_motion.advance(m_cell.now()); }
    bool isBusy() const override { return m_motion.isMoving(); }

private:
    Reply position(const QVariant &parameters) const;
    Reply moveToPoint(const QVariant &payload);
    Reply toolTip(const QString &name, Frame *frame) const;
    Reply reference(const QString &userFrame, const QString &workObject, Frame *frame) const;
    Reply item(const QString &kind, const QString &name) const;

    Cell &m_cell;
    RobotMotion m_motion;
};

} // namespace controller
