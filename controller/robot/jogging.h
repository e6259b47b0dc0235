#pragma once

#include "controller/core/holdtorun.h"
#include "controller/robot/robot.h"

namespace welmo::controller {

/// The keys of a pendant move the robot while they are held, under the rules of HoldToRun: a beat
/// must prove that the key is held, else the motion stops within 100 ms.
///
/// "motion.jog.start" takes {axis, direction, override}: x, y, z along and a, b, c about the axes
/// of "frame", or j1 to j6; direction is 1 or -1; override is a part of the full speed, above 0 and
/// at most 1. "frame" is base, tool or wobj, base if it is missing; "tool" and "wobj" are those of
/// the tool page unless they are named. "motion.jog.stop" stops it.
class Jogging : public Subsystem
{
public:
    /// These must outlive the subsystem.
    Jogging(ControllerContext &context, Registry &registry, Robot &robot, HoldToRun &hold);

    void tick() override;
    int paceMs() const override;

private:
    Reply begin(const QVariant &payload);
    Reply read(const QVariant &payload, Jog *jog) const;
    Reply readFrame(const QVariant &payload, Jog *jog, Frame *frame) const;
    void stop(const QString &cause);

    ControllerContext &m_context;
    Robot &m_robot;
    HoldToRun &m_hold;
    int m_press = 0; // the number of the press that is held
};

} // namespace welmo::controller
