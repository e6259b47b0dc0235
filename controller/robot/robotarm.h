#pragma once

#include <Eigen/Geometry>
#include <array>
#include <optional>

namespace welmo::controller {

/// Six joint angles in degrees, from the base to the flange.
using Joints = std::array<double, 6>;

/// A frame within another: right-handed, in millimetres.
using Frame = Eigen::Isometry3d;

/// An arm with a reach of about 1.4 m and a wrist whose three axes meet. The base frame has z up
/// and x to the front; the flange's z points away from the arm. With all joints at 0 the upper arm
/// is upright and the forearm points to the front.
namespace arm {

/// The flange in the base frame, at the joint angles @p q.
Frame forward(const Joints &q);

/// The joints that bring the flange to @p flange, elbow up, as near to @p present as the wrist
/// allows; empty if the arm cannot get there.
std::optional<Joints> inverse(const Frame &flange, const Joints &present);

/// Whether all joints are within their limits.
bool isWithinLimits(const Joints &joints);

/// The pose of a frame whose angles turn by @p a about x, then @p b about y, then @p c about z, all
/// axes fixed; in degrees.
struct Pose
{
    double x = 0, y = 0, z = 0;
    double a = 0, b = 0, c = 0;
};

Frame toFrame(const Pose &pose);
/// With b within ±90 degrees; where it is ±90, a is 0.
Pose toPose(const Frame &frame);

} // namespace arm

} // namespace welmo::controller
