#pragma once

#include <QString>
#include <array>

#include <kelp/moduleobject.h>

namespace welmo {

/// x, y, z in millimetres, then the Euler angles a, b, c in degrees; also offsets of that kind.
using PoseValues = std::array<double, 6>;

/// Where a pose is measured: the user frame and the work object, by name.
struct PoseFrame
{
    /// The name that tells the controller that there is none.
    static inline const QString none = QStringLiteral("default");

    QString userFrame = none;
    QString workObject = none;
};

/// The values of a node with "pos" {x, y, z} and "ori.euler" {a, b, c}; what is missing is 0.
PoseValues readPose(const kelp::ModuleObject *frame);
/// Writes them to @p frame, at "pos" and "ori.euler".
void writePose(QObject *sender, kelp::ModuleObject *frame, const PoseValues &values);

/// @p pose moved by @p offset along the axes of its own reference frame; its orientation stays.
PoseValues offsetPose(const PoseValues &pose, const PoseValues &offset);
/// @p pose moved by @p relative in the axes of the tool at that pose.
PoseValues toolRelativePose(const PoseValues &pose, const PoseValues &relative);

} // namespace welmo
