#include "controller/robot/projectseed.h"

#include "schema/names.h"

namespace welmo::controller {

namespace {

struct Pose
{
    double x, y, z, a, b, c;
};

QVariantMap named(const QString &name, QVariantMap rest)
{
    rest.insert(QStringLiteral("id"), name);
    rest.insert(QStringLiteral("name"), name);
    return rest;
}

QVariantMap poseMap(const Pose &pose)
{
    const QVariantMap euler{{QStringLiteral("a"), pose.a},
                            {QStringLiteral("b"), pose.b},
                            {QStringLiteral("c"), pose.c}};
    const QVariantMap pos{{QStringLiteral("x"), pose.x},
                          {QStringLiteral("y"), pose.y},
                          {QStringLiteral("z"), pose.z}};
    const QVariantMap frame{{QStringLiteral("pos"), pos},
                            {QStringLiteral("ori"), QVariantMap{{QStringLiteral("euler"), euler}}}};
    return {{QStringLiteral("pose"), QVariantMap{{QStringLiteral("frame"), frame}}}};
}

QVariantMap variable(const QString &name, const QString &type, const QVariantMap &value)
{
    return named(name, {{QStringLiteral("type"), type}, {QStringLiteral("value"), value}});
}

// The values are mm/s and degrees a second.
QVariantMap speed(const QString &name, double linear)
{
    return variable(
        name, QStringLiteral("speed"),
        {{QStringLiteral("linear"), linear}, {QStringLiteral("angular"), qMin(linear, 500.0)}});
}

// The radius is the distance from the point, in mm, at which the robot may start to cut the corner.
QVariantMap zone(const QString &name, double radius)
{
    return variable(name, QStringLiteral("zone"), {{QStringLiteral("radius"), radius}});
}

QVariantList builtInVariables()
{
    QVariantList list;
    for (const int v : {5, 10, 20, 50, 100, 200, 500, 1000})
        list.append(speed(QStringLiteral("v%1").arg(v), v));
    list.append(speed(QStringLiteral("vmax"), 2500));
    list.append(zone(QStringLiteral("fine"), 0));
    for (const int z : {0, 1, 5, 10, 20, 50})
        list.append(zone(QStringLiteral("z%1").arg(z), z));
    return list;
}

QVariantMap tool(const QString &name, const Pose &tip, double mass)
{
    return named(name, {{QStringLiteral("tcp"), poseMap(tip)}, {QStringLiteral("mass"), mass}});
}

QVariantMap workObject(const QString &name, const QString &userFrame, const Pose &pose)
{
    return named(
        name,
        {{QStringLiteral("user_frame"), userFrame}, {QStringLiteral("frame"), poseMap(pose)}});
}

QVariantMap userFrame(const QString &name, const Pose &pose)
{
    return named(name, {{QStringLiteral("frame"), poseMap(pose)}});
}

QVariantMap point(int number, const Pose &pose, const QVariantList &joints)
{
    const QVariantMap coordinate{{QStringLiteral("user"), QStringLiteral("world")},
                                 {QStringLiteral("wobj"), QStringLiteral("wobj0")}};
    return named(
        QStringLiteral("p%1").arg(number),
        {{QStringLiteral("description"), QString()},
         {QStringLiteral("uuid"),
          QStringLiteral("00000000-0000-4000-8000-%1").arg(number, 12, 10, QLatin1Char('0'))},
         {QStringLiteral("cart"), poseMap(pose)},
         {QStringLiteral("joint"), QVariantMap{{QStringLiteral("q"), joints}}},
         {QStringLiteral("tool"), QStringLiteral("torch1")},
         {QStringLiteral("wobj"), QStringLiteral("wobj0")},
         {QStringLiteral("related_frame"), QStringLiteral("wobj")},
         {QStringLiteral("coordinate"), coordinate}});
}

// A fillet of 400 mm with points before and after it, then a half circle of 100 mm radius.
QVariantList points()
{
    return {
        point(1, {800, -200, 500, 180, 0, 180},
              {-10.536, 30.053, -14.422, -6.361, 108.804, -10.721}),
        point(2, {800, -200, 215, 180, 35, 180}, {-14.036, 11.973, 28.771, 0.0, 49.256, -14.036}),
        point(3, {800, -200, 200, 180, 35, 180}, {-14.036, 12.794, 29.331, 0.0, 47.876, -14.036}),
        point(4, {800, 200, 200, 180, 35, 180}, {14.036, 12.794, 29.331, 0.0, 47.876, 14.036}),
        point(5, {800, 200, 500, 180, 0, 180}, {10.536, 30.053, -14.422, 6.361, 108.804, 10.721}),
        point(6, {700, -100, 200, 180, 0, 180}, {-5.854, 30.255, 14.009, -3.399, 80.612, -4.246}),
        point(7, {800, 0, 200, 180, 0, 180}, {0.0, 37.858, 1.704, 0.0, 85.438, 0.0}),
        point(8, {700, 100, 200, 180, 0, 180}, {5.854, 30.255, 14.009, 3.399, 80.612, 4.246}),
    };
}

QVariantList board(const QString &prefix, int count, int signalType, int taken)
{
    QVariantList list;
    for (int pin = 1; pin <= count; ++pin) {
        list.append(named(prefix + QString::number(pin),
                          {{QStringLiteral("is_default_IO"), pin <= taken},
                           {QStringLiteral("signal_type"), signalType}}));
    }
    return list;
}

// The first ones of each board are reserved for the controller's own functions.
QVariantList inputsAndOutputs()
{
    constexpr int input = 1;
    constexpr int output = 2;
    return board(QStringLiteral("DI1_"), 16, input, 2) + board(QStringLiteral("DI2_"), 8, input, 0)
        + board(QStringLiteral("DO1_"), 16, output, 2);
}

} // namespace

QVector<Store::Change> projectSeed()
{
    const QString world = QStringLiteral("world");
    const Pose origin{};
    const QVariantMap chosen{{QStringLiteral("tool"), QStringLiteral("torch1")},
                             {QStringLiteral("wobj"), QStringLiteral("wobj0")}};
    const auto list = [](const QString &key, const QVariantList &items) {
        return Store::Change{names::project, key, items};
    };
    return {
        list(QStringLiteral("var.system_list"), builtInVariables()),
        list(QStringLiteral("var._list"), {}),
        list(QStringLiteral("tool.system_list"), {tool(QStringLiteral("tool0"), origin, 0)}),
        list(QStringLiteral("tool._list"),
             {tool(QStringLiteral("torch1"), {0, 0, 380, 0, -35, 0}, 3.2)}),
        list(QStringLiteral("wobj.system_list"),
             {workObject(QStringLiteral("wobj0"), world, origin)}),
        list(QStringLiteral("wobj._list"),
             {workObject(QStringLiteral("fixture1"), world, {600, 0, 150, 0, 0, 0})}),
        list(QStringLiteral("point.system_list"), {}),
        list(QStringLiteral("point._list"), points()),
        list(QStringLiteral("user_frame.system_list"), {userFrame(world, origin)}),
        list(QStringLiteral("user_frame._list"), {}),
        {names::signalDetail, {}, inputsAndOutputs()},
        {names::toolPage, {}, chosen},
    };
}

} // namespace welmo::controller
