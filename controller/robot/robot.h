#pragma once

#include "controller/core/controllercontext.h"
#include "controller/core/registry.h"
#include "controller/core/subsystem.h"
#include "controller/robot/cellswitches.h"
#include "controller/robot/projectdata.h"
#include "controller/robot/robotmotion.h"

namespace welmo::controller {

/// The robot: where it is, moving it to a point by hand, and stopping it. Its position is not
/// stored: it starts where it was built.
///
/// "tl_program.get_rob_pos" takes "parameters" {tool, wobj} and answers the tool's tip in the work
/// object as "pose.frame" (pos x, y, z in millimetres; ori.euler a, b, c in degrees), and the six
/// joints in degrees as "q".
///
/// "motion.move.to_point" takes "cartesian.pose.frame" in the frame of "coordinate" {user_frame,
/// wobj.name}, where "default" stands for the base, or for the work object's own user frame;
/// "movetype" is "joint" or "linear". "tool" is the tool whose tip goes there; without it, the one
/// chosen on the tool page. A move is refused while the robot moves or a program has it.
///
/// "motion.move.stop" stops at once, whatever the payload says, also while nothing moves; it pauses
/// a program that moves the robot. A loss of power and the safety circuit stop it as well, and in
/// manual mode the loss of the pendant; in automatic mode it cannot be moved by hand.
///
/// The node "motion.state" holds {state, ends, end, reason, arguments, q, tip, pose}: state is
/// still, moves (to a point), jogs or program; ends counts the moves to a point that ended, and end
/// says how the last one did: arrived, stopped or refused, with the reason. q are the joints in
/// degrees, tip is that of the chosen tool in the base frame {x, y, z}, pose the same in the chosen
/// work object {x, y, z, a, b, c}. Places are notified ten times a second while they change.
class Robot : public Subsystem
{
public:
    Robot(ControllerContext &context, Registry &registry, const Surroundings &surroundings);

    Reply start() override;
    void tick() override;
    bool isBusy() const override { return m_motion.isMoving() || isUntold(); }

    /// Gives the robot to a program: until yield() nothing else moves it. Refused while it moves.
    Reply seize();
    void yield() { m_seized = false; }
    /// Moves the arm to where the program has it now.
    void place(const Joints &joints) { m_motion.place(joints); }
    const Joints &joints() const { return m_motion.joints(); }
    /// Moves by hand until stopJog().
    Reply jog(const Jog &jog);
    void stopJog();
    bool isJogging() const { return m_motion.isJogging(); }
    /// Whether a stop was commanded while a program moves the robot; true only once for each.
    bool takeStop();

private:
    Reply position(const QVariant &parameters) const;
    Reply moveToPoint(const QVariant &payload);
    Reply tryToMove(const QVariant &payload);
    Reply mayMove() const;
    void stop();
    void watchOver();
    void end(const char *how, const Reason &reason);
    QVariantMap words() const;
    QVariantMap node() const;
    bool isUntold() const { return m_toldJoints != m_motion.joints(); }
    void tell();

    ControllerContext &m_context;
    const Surroundings &m_surroundings;
    ProjectData m_project;
    RobotMotion m_motion;
    bool m_seized = false;
    bool m_stopWanted = false;
    int m_ends = 0;
    QString m_end;
    Reason m_reason;
    QVariantMap m_toldWords;
    Joints m_toldJoints{};
    qint64 m_toldAt = 0;
};

} // namespace welmo::controller
