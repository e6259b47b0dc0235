#include "instructions/move/pointpose.h"

#include <vu/calc.h>

namespace welmo {

namespace {

const std::array<QString, 6> keys{QStringLiteral("pos.x"),       QStringLiteral("pos.y"),
                                  QStringLiteral("pos.z"),       QStringLiteral("ori.euler.a"),
                                  QStringLiteral("ori.euler.b"), QStringLiteral("ori.euler.c")};

PoseValues combined(const PoseValues &first, const PoseValues &second)
{
    kelp::ModuleObject pose(QStringLiteral("pose"), nullptr);
    kelp::ModuleObject relative(QStringLiteral("relative"), nullptr);
    kelp::ModuleObject result(QStringLiteral("result"), nullptr);
    writePose(nullptr, &pose, first);
    writePose(nullptr, &relative, second);
    vu::calc::toolreltool(&pose, &relative, &result);
    return readPose(&result);
}

} // namespace

PoseValues readPose(const kelp::ModuleObject *frame)
{
    PoseValues values{};
    for (size_t i = 0; i < keys.size(); ++i)
        values[i] = frame->r(keys[i])->getDouble(0.0);
    return values;
}

void writePose(QObject *sender, kelp::ModuleObject *frame, const PoseValues &values)
{
    for (size_t i = 0; i < keys.size(); ++i)
        frame->set(sender, keys[i], values[i], true);
}

PoseValues offsetPose(const PoseValues &pose, const PoseValues &offset)
{
    // An offset frame that is not turned, times the pose: every host has this product of poses, and
    // some have no other.
    return combined({offset[0], offset[1], offset[2], 0, 0, 0}, pose);
}

PoseValues toolRelativePose(const PoseValues &pose, const PoseValues &relative)
{
    return combined(pose, relative);
}

} // namespace welmo
