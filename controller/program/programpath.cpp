#include "controller/program/programpath.h"

#include <algorithm>
#include <cmath>

using Eigen::Quaterniond;
using Eigen::Vector3d;

namespace welmo::controller {

namespace {

constexpr double degree = M_PI / 180.0;

double turn(const Frame &from, const Frame &to)
{
    return Quaterniond(from.linear()).angularDistance(Quaterniond(to.linear())) / degree;
}

class JointPath : public ProgramPath
{
public:
    JointPath(const Joints &from, const Joints &to, double length)
        : ProgramPath(length)
        , m_from(from)
        , m_to(to)
    { }

    std::optional<Joints> at(double way, const Joints &, double) const override
    {
        Joints joints{};
        for (size_t i = 0; i < joints.size(); ++i)
            joints[i] = m_from[i] + part(way) * (m_to[i] - m_from[i]);
        return joints;
    }

private:
    Joints m_from, m_to;
};

/// A path of the tool's tip that turns evenly from one orientation to the other.
class TipPath : public ProgramPath
{
public:
    TipPath(const Frame &from, const Frame &to, const Frame &tool, double length)
        : ProgramPath(std::max(length, turn(from, to)))
        , m_from(from.linear())
        , m_to(to.linear())
        , m_toFlange(tool.inverse())
    { }

    std::optional<Joints> at(double way, const Joints &present, double aside) const override
    {
        Frame tip = Frame::Identity();
        tip.linear() = m_from.slerp(part(way), m_to).toRotationMatrix();
        const Vector3d left = tip.linear().col(2).cross(direction(part(way)));
        tip.translation() = position(part(way)) + aside * left;
        return arm::inverse(tip * m_toFlange, present);
    }

private:
    virtual Vector3d position(double part) const = 0;
    virtual Vector3d direction(double part) const = 0;

    Quaterniond m_from, m_to;
    Frame m_toFlange;
};

class LinePath : public TipPath
{
public:
    LinePath(const Frame &from, const Frame &to, const Frame &tool)
        : TipPath(from, to, tool, (to.translation() - from.translation()).norm())
        , m_start(from.translation())
        , m_way(to.translation() - from.translation())
    { }

private:
    Vector3d position(double part) const override { return m_start + part * m_way; }
    Vector3d direction(double) const override { return m_way.normalized(); }

    Vector3d m_start, m_way;
};

struct Circle
{
    Vector3d centre, outwards, along; // unit vectors: to the start, and along the circle there
    double angle; // of the whole path
};

// Empty if the three points are on a straight line, or nearly so.
std::optional<Circle> circleThrough(const Vector3d &from, const Vector3d &by, const Vector3d &to)
{
    constexpr double straight = 1e-6;
    const Vector3d a = by - from;
    const Vector3d b = to - from;
    const Vector3d normal = a.cross(b);
    if (normal.norm() <= straight * a.norm() * b.norm())
        return {};
    const Vector3d radius = (normal.cross(a) * b.squaredNorm() + b.cross(normal) * a.squaredNorm())
        / (2 * normal.squaredNorm());
    Circle circle{from + radius, -radius, normal.normalized().cross(-radius), 0};
    const Vector3d end = to - circle.centre;
    circle.angle = std::atan2(end.dot(circle.along), end.dot(circle.outwards));
    if (circle.angle < 0)
        circle.angle += 2 * M_PI;
    return circle;
}

class CirclePath : public TipPath
{
public:
    CirclePath(const Circle &circle, const Frame &from, const Frame &to, const Frame &tool)
        : TipPath(from, to, tool, circle.angle * circle.outwards.norm())
        , m_circle(circle)
    { }

private:
    Vector3d position(double part) const override
    {
        const double angle = part * m_circle.angle;
        return m_circle.centre + std::cos(angle) * m_circle.outwards
            + std::sin(angle) * m_circle.along;
    }
    Vector3d direction(double part) const override
    {
        const double angle = part * m_circle.angle;
        return (std::cos(angle) * m_circle.along - std::sin(angle) * m_circle.outwards)
            .normalized();
    }

    Circle m_circle;
};

} // namespace

bool ProgramPath::isPossible(Joints present) const
{
    constexpr int steps = 100;
    for (int step = 0; step <= steps; ++step) {
        const auto joints = at(m_length * step / steps, present);
        if (!joints)
            return false;
        present = *joints;
    }
    return true;
}

std::unique_ptr<ProgramPath> ProgramPath::joint(const Joints &from, const Joints &to,
                                                const Frame &tool)
{
    const Frame start = arm::forward(from) * tool;
    const Frame end = arm::forward(to) * tool;
    const double way = (end.translation() - start.translation()).norm();
    return std::make_unique<JointPath>(from, to, std::max(way, turn(start, end)));
}

std::unique_ptr<ProgramPath> ProgramPath::line(const Frame &from, const Frame &to,
                                               const Frame &tool)
{
    return std::make_unique<LinePath>(from, to, tool);
}

std::unique_ptr<ProgramPath> ProgramPath::circle(const Frame &from, const Vector3d &by,
                                                 const Frame &to, const Frame &tool)
{
    const auto circle = circleThrough(from.translation(), by, to.translation());
    if (!circle)
        return line(from, to, tool);
    return std::make_unique<CirclePath>(*circle, from, to, tool);
}

} // namespace welmo::controller
