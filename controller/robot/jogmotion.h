#pragma once

#include <QtGlobal>

#include "controller/robot/robotarm.h"

namespace welmo::controller {

/// Moving by hand in one direction, as long as somebody wants it.
struct Jog
{
    enum class Kind { Joint, Along, About };

    Kind kind = Kind::Joint;
    int joint = 0; ///< Joint: from 0
    Eigen::Vector3d axis = Eigen::Vector3d::UnitX(); ///< otherwise; in the base frame
    double speed = 0; ///< mm or degrees a second, with its sign
    Frame tool = Frame::Identity(); ///< whose tip moves, in the flange's frame
};

/// Where a jog has the arm. It starts from where the arm was, so that a straight way stays
/// straight.
class JogMotion
{
public:
    JogMotion(const Jog &jog, const Joints &from, qint64 now);

    /// Brings @p joints up to @p now; false where the arm gets no further. Time that nobody looked
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
