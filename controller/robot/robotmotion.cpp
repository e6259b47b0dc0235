#include "controller/robot/robotmotion.h"

#include <algorithm>
#include <cmath>

namespace welmo::controller {

namespace {

constexpr double degree = M_PI / 180.0;

double jointSeconds(const Joints &from, const Joints &to)
{
    double farthest = 0;
    for (size_t i = 0; i < from.size(); ++i)
        farthest = std::max(farthest, std::abs(to[i] - from[i]));
    return farthest / RobotMotion::jointSpeed;
}

double linearSeconds(const Frame &from, const Frame &to)
{
    const double way = (to.translation() - from.translation()).norm();
    const double turn =
        Eigen::Quaterniond(from.linear()).angularDistance(Eigen::Quaterniond(to.linear())) / degree;
    return std::max(way / RobotMotion::linearSpeed, turn / RobotMotion::turningSpeed);
}

Frame between(const Frame &from, const Frame &to, double part)
{
    Frame frame = Frame::Identity();
    frame.translation() = from.translation() + part * (to.translation() - from.translation());
    frame.linear() = Eigen::Quaterniond(from.linear())
                         .slerp(part, Eigen::Quaterniond(to.linear()))
                         .toRotationMatrix();
    return frame;
}

} // namespace

bool RobotMotion::start(qint64 now, Way way, const Frame &target, const Frame &tool)
{
    Move move{way, now, 0, m_joints, m_joints, arm::forward(m_joints) * tool, target, tool};
    if (!isPossible(move))
        return false;
    m_hasArrived = false;
    move.seconds = way == Way::Joint ? jointSeconds(move.fromJoints, move.toJoints)
                                     : linearSeconds(move.from, move.to);
    m_move = move;
    advance(now);
    return true;
}

// The target must be in reach, and for a straight move every step to it as well.
bool RobotMotion::isPossible(Move &move) const
{
    constexpr int steps = 100;
    Joints present = m_joints;
    for (int step = move.way == Way::Joint ? steps : 1; step <= steps; ++step) {
        const Frame tip = between(move.from, move.to, double(step) / steps);
        const auto next = arm::inverse(tip * move.tool.inverse(), present);
        if (!next)
            return false;
        present = *next;
    }
    move.toJoints = present;
    return true;
}

std::optional<Joints> RobotMotion::jointsAt(const Move &move, double part) const
{
    if (part >= 1)
        return move.toJoints;
    if (move.way == Way::Linear)
        return arm::inverse(between(move.from, move.to, part) * move.tool.inverse(), m_joints);
    Joints joints{};
    for (size_t i = 0; i < joints.size(); ++i)
        joints[i] = move.fromJoints[i] + part * (move.toJoints[i] - move.fromJoints[i]);
    return joints;
}

void RobotMotion::jog(qint64 now, const Jog &jog)
{
    m_hasArrived = false;
    m_jog.emplace(jog, m_joints, now);
}

void RobotMotion::stop()
{
    m_move.reset();
    m_jog.reset();
}

void RobotMotion::advance(qint64 now)
{
    if (m_jog && !m_jog->advance(now, &m_joints))
        stop();
    if (!m_move)
        return;
    const double passed = double(now - m_move->began) / 1000.0;
    const double part = m_move->seconds > 0 ? std::min(passed / m_move->seconds, 1.0) : 1.0;
    const auto joints = jointsAt(*m_move, part);
    if (joints)
        m_joints = *joints;
    m_hasArrived = joints && part >= 1;
    if (!joints || part >= 1)
        stop();
}

} // namespace welmo::controller
