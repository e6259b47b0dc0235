#pragma once

#include <QVector>

#include "controller/core/store.h"

namespace welmo::controller {

/// The project of a new controller: the built-in lists, and enough of its own to weld with.
///
/// A pose is at "pose.frame": "pos" {x, y, z} in millimetres and "ori.euler" {a, b, c} in degrees;
/// a point has it below "cart", and its six joint angles, in degrees, as "joint.q".
QVector<Store::Change> projectSeed();

} // namespace welmo::controller
