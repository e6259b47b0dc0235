#include "vu/calc.h"

#include <Eigen/Geometry>
#include <cmath>

namespace vu::calc {

namespace {

constexpr double degree = M_PI / 180.0;

double number(const kelp::ModuleObject *node, const char *path)
{
    return node->r(QString::fromLatin1(path))->getDouble();
}

Eigen::Vector3d position(const kelp::ModuleObject *pose)
{
    return {number(pose, "pos.x"), number(pose, "pos.y"), number(pose, "pos.z")};
}

Eigen::Matrix3d rotation(const kelp::ModuleObject *pose)
{
    using Eigen::AngleAxisd;
    using Eigen::Vector3d;
    return (AngleAxisd(number(pose, "ori.euler.c") * degree, Vector3d::UnitZ())
            * AngleAxisd(number(pose, "ori.euler.b") * degree, Vector3d::UnitY())
            * AngleAxisd(number(pose, "ori.euler.a") * degree, Vector3d::UnitX()))
        .toRotationMatrix();
}

Eigen::Vector3d eulerAngles(const Eigen::Matrix3d &r)
{
    const double cosB = std::hypot(r(0, 0), r(1, 0));
    const double b = std::atan2(-r(2, 0), cosB);
    constexpr double locked = 1e-9; // a and c turn about the same axis; c gets the whole angle
    if (cosB < locked)
        return Eigen::Vector3d(0.0, b, std::atan2(-r(0, 1), r(1, 1))) / degree;
    return Eigen::Vector3d(std::atan2(r(2, 1), r(2, 2)), b, std::atan2(r(1, 0), r(0, 0))) / degree;
}

void write(kelp::ModuleObject *pose, const Eigen::Vector3d &pos, const Eigen::Vector3d &euler)
{
    const char *const axes[] = {"pos.x", "pos.y", "pos.z"};
    const char *const angles[] = {"ori.euler.a", "ori.euler.b", "ori.euler.c"};
    for (int i = 0; i < 3; ++i) {
        pose->set(nullptr, QString::fromLatin1(axes[i]), pos[i]);
        pose->set(nullptr, QString::fromLatin1(angles[i]), euler[i]);
    }
}

} // namespace

void toolreltool(const kelp::ModuleObject *pose, const kelp::ModuleObject *relative,
                 kelp::ModuleObject *result)
{
    const Eigen::Matrix3d turn = rotation(pose);
    write(result, position(pose) + turn * position(relative),
          eulerAngles(turn * rotation(relative)));
}

void offs(const kelp::ModuleObject *pose, const kelp::ModuleObject *offset,
          kelp::ModuleObject *result)
{
    write(result, position(pose) + position(offset), eulerAngles(rotation(pose)));
}

} // namespace vu::calc
