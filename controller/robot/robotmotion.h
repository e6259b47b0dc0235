#pragma once

#include <QtGlobal>
#include <optional>

#include "controller/robot/jogmotion.h"

namespace welmo::controller {

/// The arm's position, and its motion elsewhere: at the constant speed of a robot that is moved by
/// hand, without ramps. Times are the controller's clock.
class RobotMotion
{
public:
    enum class Way {
        Joint, ///< every joint turns at its own constant speed; all arrive together
        Linear ///< the tool's tip moves straight and turns evenly
    };

    static constexpr double jointSpeed = 30; ///< degrees a second
    static constexpr double linearSpeed = 250; ///< millimetres a second
    static constexpr double turningSpeed = 45; ///< degrees a second

    const Joints &joints() const { return m_joints; }
    bool isMoving() const { return m_move || m_jog; }
    bool isJogging() const { return m_jog.has_value(); }
    /// Whether the last movement reached its target; a jog has none.
    bool hasArrived() const { return m_hasArrived; }

    /// Starts a move to @p target, the tip of @p tool in the base frame; @p tool is the tip in the
    /// flange's frame. False, without a move, if the arm cannot get there that way.
    bool start(qint64 now, Way way, const Frame &target, const Frame &tool);
    /// Moves in a direction until stop(), or until the arm cannot go further.
    void jog(qint64 now, const Jog &jog);
    void advance(qint64 now);
    void stop();
    /// Sets the arm to where a program has it.
    void place(const Joints &joints) { m_joints = joints; }

private:
    struct Move
    {
        Way way;
        qint64 began;
        double seconds;
        Joints fromJoints, toJoints;
        Frame from, to, tool;
    };

    std::optional<Joints> jointsAt(const Move &move, double part) const;
    bool isPossible(Move &move) const;

    Joints m_joints{0, 20, -5, 0, 75, 0};
    std::optional<Move> m_move;
    std::optional<JogMotion> m_jog;
    bool m_hasArrived = false;
};

} // namespace welmo::controller
