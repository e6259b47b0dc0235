#pragma once

#include <QtGlobal>

#include "controller/robot/robotarm.h"

namespace welmo::controller {

/// A motion by hand in one direction.
struct Jog
{
    enum class Kind { Joint, Along, About };

    Kind kind = Kind::Joint;
    int joint = 0; ///< for Joint: its number, from 0
    /// For other kinds: the axis in the base frame.
    Eigen::Vector3d axis = Eigen::Vector3d::UnitX();
    double speed = 0; ///< mm or degrees a second, signed
    Frame tool = Frame::Identity(); ///< the tip that moves, in the flange's frame
};

/// Where a jog moves the arm. It is computed from where the jog began, so that a straight path
/// stays straight.
class JogMotion
{
public:
    JogMotion(const Jog &jog, const Joints &from, qint64 now);

    /// Moves @p joints on to @p now; false if the arm cannot go further. A long time without a call
    /// is not made up for.
    bool advance(qint64 now, Joints *joints);

private:
    std::optional<Joints> at(double way, const Joints &present) const;

    Jog m_jog;
    Joints m_from;
    Frame m_tip;
    qint64 m_time;
    double m_way = 0;
};

} // namespace welmo::controller
