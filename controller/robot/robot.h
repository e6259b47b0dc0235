#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"
#include "controller/robot/projectdata.h"
#include "controller/robot/robotmotion.h"

namespace welmo::controller {

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
/// chosen on the tool page. While the robot moves, or a program has it, a move is refused.
///
/// "motion.move.stop" stops at once, whatever the payload says, and also while nothing moves; a
/// program that moves the robot is paused by it.
class Robot : public Subsystem
{
public:
    Robot(ControllerContext &context, Registry &registry);

    void tick() override { m_motion.advance(m_context.now()); }
    bool isBusy() const override { return m_motion.isMoving(); }

    /// A program takes the robot: until yield() nothing else moves it. Refused while it moves.
    Reply seize();
    void yield() { m_seized = false; }
    /// Where the program has the arm now.
    void place(const Joints &joints) { m_motion.place(joints); }
    const Joints &joints() const { return m_motion.joints(); }
    /// True once after somebody stopped the robot that a program moves.
    bool takeStop();

private:
    Reply position(const QVariant &parameters) const;
    Reply moveToPoint(const QVariant &payload);

    ControllerContext &m_context;
    ProjectData m_project;
    RobotMotion m_motion;
    bool m_seized = false;
    bool m_stopWanted = false;
};

} // namespace welmo::controller
