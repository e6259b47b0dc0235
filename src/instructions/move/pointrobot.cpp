#include "instructions/move/pointrobot.h"

#include <QCoreApplication>
#include <QJsonObject>

#include <tessa/managerhelper.h>

#include "adapter/hostadapter.h"
#include "data/arcweldservice.h"
#include "data/report.h"

namespace welmo::robot {

namespace {

constexpr int positionTimeoutMs = 1600;
constexpr int motionTimeoutMs = 4800;
constexpr int stopAtOnce = 1;
const QString moveCommand = QStringLiteral("motion.move.to_point");
const QString stopCommand = QStringLiteral("motion.move.stop");

struct PointRobot
{
    Q_DECLARE_TR_FUNCTIONS(PointRobot)
};

tessa::ControllerManager *manager()
{
    return host::controllerManager();
}

// The command's request object belongs to the command and keeps its values between calls.
kelp::ModuleObject *requestOf(const QString &command)
{
    return manager()->cmdItemMobj(command, QStringLiteral("request"));
}

bool send(const QString &command)
{
    return manager()->request(command, nullptr, motionTimeoutMs)->getInt(0) == 0;
}

} // namespace

std::optional<points::Position> position(const QString &tool, const QString &workObject)
{
    const QJsonObject parameters{{QStringLiteral("tool"), tool},
                                 {QStringLiteral("wobj"), workObject}};
    const auto answer = manager()->execRequest(QStringLiteral("tl_program.get_rob_pos"), QString(),
                                               parameters, true, positionTimeoutMs);
    if (answer->getInt(0) != 0)
        return {};
    return points::Position{readPose(answer->r(QStringLiteral("pose.frame"))),
                            answer->r(QStringLiteral("q"))->getList(), tool, workObject};
}

bool moveTo(const PoseValues &pose, const PoseFrame &frame, const QString &tool, Motion motion)
{
    kelp::ModuleObject *request = requestOf(moveCommand);
    const auto set = [request](const char *key, const QString &value) {
        request->set(nullptr, QString::fromLatin1(key), value, true);
    };
    request->set(nullptr, QStringLiteral("cartesian.pose.frame"), {}, true);
    writePose(nullptr, request->r(QStringLiteral("cartesian.pose.frame")), pose);
    set("movetype", motion == Motion::Joint ? QStringLiteral("joint") : QStringLiteral("linear"));
    set("coordinate.user_frame", frame.userFrame);
    set("coordinate.wobj.name", frame.workObject);
    set("tool", tool);
    return send(moveCommand);
}

bool stop()
{
    requestOf(stopCommand)->set(nullptr, QStringLiteral("stoptype"), stopAtOnce, true);
    return send(stopCommand);
}

QString addPointHere(QObject *sender, const QString &tool, const QString &workObject,
                     const QString &wished)
{
    if (!report::requireConnection())
        return {};
    const auto here = position(tool, workObject);
    if (!here) {
        report::error(sender, PointRobot::tr("get robot position fail"));
        return {};
    }
    return points::add(sender, *here, wished);
}

} // namespace welmo::robot
