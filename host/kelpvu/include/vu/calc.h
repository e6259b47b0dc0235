#pragma once

#include "kelp/moduleobject.h"

/// Pose arithmetic on data objects. A pose has the children "pos" (x, y, z in millimetres) and
/// "ori.euler" (a, b, c in degrees). Frames are right-handed. The orientation is R = Rz(c) · Ry(b)
/// · Rx(a): turned by a about x, then by b about y, then by c about z, all axes fixed. Results have
/// b within ±90 degrees; at ±90, a is 0. Missing values count as 0.
namespace vu::calc {

/// @p result = @p pose · @p relative: @p relative is given in the frame of the tool at @p pose.
void toolreltool(const kelp::ModuleObject *pose, const kelp::ModuleObject *relative,
                 kelp::ModuleObject *result);

/// @p result = @p pose moved by the position of @p offset along the axes of the pose's own
/// reference frame; its orientation stays.
void offs(const kelp::ModuleObject *pose, const kelp::ModuleObject *offset,
          kelp::ModuleObject *result);

} // namespace vu::calc
