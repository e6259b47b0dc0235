#include "controller/robot/jogmotion.h"

#include <algorithm>
#include <cmath>

namespace welmo::controller {

namespace {

constexpr double degree = M_PI / 180.0;
constexpr qint64 longestStep = 20; // ms
// Degrees a second; faster only where the wrist would turn over.
constexpr double fastestJoint = 360;

bool turnsOver(const Joints &from, const Joints &to, double seconds)
{
    double farthest = 0;
    for (size_t i = 0; i < from.size(); ++i)
        farthest = std::max(farthest, std::abs(to[i] - from[i]));
    return farthest > fastestJoint * seconds;
}

} // namespace

JogMotion::JogMotion(const Jog &jog, const Joints &from, qint64 now)
    : m_jog(jog)
    , m_from(from)
    , m_tip(arm::forward(from) * jog.tool)
    , m_time(now)
{ }

bool JogMotion::advance(qint64 now, Joints *joints)
{
    const double seconds = double(std::min(now - m_time, longestStep)) / 1000;
    m_time = now;
    if (seconds <= 0)
        return true;
    const double way = m_way + m_jog.speed * seconds;
    const auto next = at(way, *joints);
    if (!next || turnsOver(*joints, *next, seconds))
        return false;
    m_way = way;
    *joints = *next;
    return true;
}

std::optional<Joints> JogMotion::at(double way, const Joints &present) const
{
    if (m_jog.kind == Jog::Kind::Joint) {
        Joints joints = m_from;
        joints[size_t(m_jog.joint)] += way;
        return arm::isWithinLimits(joints) ? std::make_optional(joints) : std::nullopt;
    }
    Frame tip = m_tip;
    if (m_jog.kind == Jog::Kind::Along)
        tip.pretranslate(way * m_jog.axis);
    else
        tip.linear() = Eigen::AngleAxisd(way * degree, m_jog.axis) * m_tip.linear();
    return arm::inverse(tip * m_jog.tool.inverse(), present);
}

} // namespace welmo::controller
