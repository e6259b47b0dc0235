#include "controller/robot/robotarm.h"

#include <algorithm>
#include <cmath>

using Eigen::AngleAxisd;
using Eigen::Matrix3d;
using Eigen::Translation3d;
using Eigen::Vector3d;

namespace welmo::controller::arm {

namespace {

constexpr double degree = M_PI / 180.0;
constexpr double straight = 1e-9; // the wrist's outer axes are parallel

// In millimetres.
constexpr double shoulderHeight = 450;
constexpr double shoulderOffset = 150;
constexpr double upperArm = 600;
constexpr double elbowOffset = 100;
constexpr double forearm = 640;
constexpr double wristToFlange = 100;

struct Limit
{
    double lowest, highest;
};
constexpr std::array<Limit, 6> limits{
    {{-170, 170}, {-95, 155}, {-175, 90}, {-190, 190}, {-130, 130}, {-360, 360}}};

AngleAxisd aboutX(double degrees)
{
    return {degrees * degree, Vector3d::UnitX()};
}

AngleAxisd aboutY(double degrees)
{
    return {degrees * degree, Vector3d::UnitY()};
}

AngleAxisd aboutZ(double degrees)
{
    return {degrees * degree, Vector3d::UnitZ()};
}

// The full turn of @p angle that is nearest to @p present, within its limits.
double unwound(double angle, double present, const Limit &limit)
{
    angle += 360.0 * std::round((present - angle) / 360.0);
    if (angle < limit.lowest && angle + 360.0 <= limit.highest)
        return angle + 360.0;
    if (angle > limit.highest && angle - 360.0 >= limit.lowest)
        return angle - 360.0;
    return angle;
}

// Sets base, shoulder and elbow so that they bring the wrist's centre to its place.
bool reach(const Vector3d &wrist, Joints &joints)
{
    const double forward = std::hypot(wrist.x(), wrist.y()) - shoulderOffset;
    const double up = wrist.z() - shoulderHeight;
    const double lower = std::hypot(forearm, elbowOffset);
    const double distance = std::hypot(forward, up);
    const double cosine =
        (upperArm * upperArm + distance * distance - lower * lower) / (2 * upperArm * distance);
    if (!(std::abs(cosine) <= 1.0))
        return false;
    const double raised = std::atan2(up, forward) + std::acos(cosine);
    const double lowered =
        std::atan2(up - upperArm * std::sin(raised), forward - upperArm * std::cos(raised));
    joints[0] = std::atan2(wrist.y(), wrist.x()) / degree;
    joints[1] = 90.0 - raised / degree;
    joints[2] = (std::atan2(elbowOffset, forearm) - lowered) / degree - joints[1];
    return true;
}

// The wrist turns about x, y, x; of its two solutions the nearer one is taken.
void orient(const Matrix3d &wrist, const Joints &present, Joints &joints)
{
    const double bent = std::hypot(wrist(0, 1), wrist(0, 2));
    joints[4] = std::atan2(bent, wrist(0, 0)) / degree;
    if (bent < straight) {
        joints[3] = present[3];
        joints[5] = std::atan2(wrist(2, 1), wrist(1, 1)) / degree - present[3];
    } else {
        joints[3] = std::atan2(wrist(1, 0), -wrist(2, 0)) / degree;
        joints[5] = std::atan2(wrist(0, 1), wrist(0, 2)) / degree;
    }
    Joints other = joints;
    other[3] += 180.0;
    other[4] = -other[4];
    other[5] += 180.0;
    for (Joints *way : {&joints, &other}) {
        for (const size_t i : {3, 5})
            (*way)[i] = unwound((*way)[i], present[i], limits[i]);
    }
    const auto turned = [&present](const Joints &way) {
        return std::abs(way[3] - present[3]) + std::abs(way[5] - present[5]);
    };
    if (!isWithinLimits(joints) || (isWithinLimits(other) && turned(other) < turned(joints)))
        joints = other;
}

} // namespace

bool isWithinLimits(const Joints &joints)
{
    for (size_t i = 0; i < joints.size(); ++i) {
        if (joints[i] < limits[i].lowest || joints[i] > limits[i].highest)
            return false;
    }
    return true;
}

Frame forward(const Joints &q)
{
    return aboutZ(q[0]) * Translation3d(shoulderOffset, 0, shoulderHeight) * aboutY(q[1])
        * Translation3d(0, 0, upperArm) * aboutY(q[2]) * Translation3d(forearm, 0, elbowOffset)
        * aboutX(q[3]) * aboutY(q[4]) * aboutX(q[5]) * Translation3d(wristToFlange, 0, 0)
        * aboutY(90);
}

std::optional<Joints> inverse(const Frame &flange, const Joints &present)
{
    Joints joints{};
    if (!reach(flange * Vector3d(0, 0, -wristToFlange), joints))
        return {};
    joints[0] = unwound(joints[0], present[0], limits[0]);
    joints[2] = unwound(joints[2], 0, limits[2]);
    const Matrix3d carried = (aboutZ(joints[0]) * aboutY(joints[1] + joints[2])).toRotationMatrix();
    orient(carried.transpose() * flange.linear() * aboutY(-90).toRotationMatrix(), present, joints);
    if (!isWithinLimits(joints))
        return {};
    return joints;
}

Frame toFrame(const Pose &pose)
{
    Frame frame = Frame::Identity();
    frame.translation() = Vector3d(pose.x, pose.y, pose.z);
    frame.linear() = (aboutZ(pose.c) * aboutY(pose.b) * aboutX(pose.a)).toRotationMatrix();
    return frame;
}

Pose toPose(const Frame &frame)
{
    const Matrix3d r = frame.linear();
    const Vector3d at = frame.translation();
    const double cosB = std::hypot(r(0, 0), r(1, 0));
    const double b = std::atan2(-r(2, 0), cosB) / degree;
    if (cosB < straight)
        return {at.x(), at.y(), at.z(), 0, b, std::atan2(-r(0, 1), r(1, 1)) / degree};
    return {at.x(), at.y(),
            at.z(), std::atan2(r(2, 1), r(2, 2)) / degree,
            b,      std::atan2(r(1, 0), r(0, 0)) / degree};
}

} // namespace welmo::controller::arm
