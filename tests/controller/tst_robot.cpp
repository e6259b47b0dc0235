#include <QtTest>
#include <cmath>

#include "controllerbench.h"

#include "controller/fields.h"
#include "controller/robotarm.h"

using namespace controller;

Q_DECLARE_METATYPE(controller::Joints)

namespace {

constexpr char getPosition[] = "tl_program.get_rob_pos";
constexpr char moveTo[] = "motion.move.to_point";
constexpr char stopMove[] = "motion.move.stop";
constexpr qint64 longEnough = 60000;

QVector<double> numbers(const QVariant &frame)
{
    QVector<double> result;
    for (const char *path :
         {"pos.x", "pos.y", "pos.z", "ori.euler.a", "ori.euler.b", "ori.euler.c"})
        result.append(childAt(frame, path).toDouble());
    return result;
}

QString shown(const QVector<double> &pose)
{
    QStringList texts;
    for (const double value : pose)
        texts.append(QString::number(value));
    return texts.join(QLatin1String(", "));
}

// Both ways to say the same orientation count as the same.
bool isSamePose(const QVector<double> &a, const QVector<double> &b)
{
    const auto frame = [](const QVector<double> &p) {
        return arm::toFrame({p[0], p[1], p[2], p[3], p[4], p[5]});
    };
    return frame(a).isApprox(frame(b), 1e-6);
}

QVariantMap frameMap(const QVector<double> &p)
{
    return {{"pos", QVariantMap{{"x", p[0]}, {"y", p[1]}, {"z", p[2]}}},
            {"ori", QVariantMap{{"euler", QVariantMap{{"a", p[3]}, {"b", p[4]}, {"c", p[5]}}}}}};
}

QVariantMap move(const QString &way, const QVector<double> &pose, const QString &wobj = "wobj0",
                 const QString &user = "default", const QString &tool = "torch1")
{
    QVariantMap payload;
    payload = withChild(payload, "cartesian.pose.frame", frameMap(pose));
    payload = withChild(payload, "coordinate.user_frame", user);
    payload = withChild(payload, "coordinate.wobj.name", wobj);
    payload = withChild(payload, "movetype", way);
    return withChild(payload, "tool", tool);
}

struct RobotBench : ControllerBench
{
    Reply position(const QString &tool = "torch1", const QString &wobj = "wobj0")
    {
        return run(getPosition,
                   QVariantMap{{"target", ""},
                               {"parameters", QVariantMap{{"tool", tool}, {"wobj", wobj}}},
                               {"wait", true}});
    }
    QVector<double> pose(const QString &tool = "torch1", const QString &wobj = "wobj0")
    {
        return numbers(childAt(position(tool, wobj).value, "pose.frame"));
    }
    void passTime(qint64 milliseconds)
    {
        now += milliseconds;
        controller.tick();
    }
};

const QVector<double> p3{800, -200, 200, 180, 35, 180};
const QVector<double> p4{800, 200, 200, 180, 35, 180};

} // namespace

/// The simulated robot: its arm, where it says it is, how it moves and stops.
class tst_Robot : public QObject
{
    Q_OBJECT
private slots:
    void knownPoses_data();
    void knownPoses();
    void inverseIsTheWayBack();
    void seededPointsAreTrue();
    void positionIsOfToolInWorkObject();
    void positionRefuses_data();
    void positionRefuses();
    void linearGoesStraight();
    void jointTurnsEvenly();
    void arrivesInTheFrameOfThePoint_data();
    void arrivesInTheFrameOfThePoint();
    void stops();
    void refuses_data();
    void refuses();
    void straightWayHasToBeFree();
    void oneMoveAtATime();
};

void tst_Robot::knownPoses_data()
{
    QTest::addColumn<Joints>("joints");
    QTest::addColumn<QVector<double>>("flange");
    QTest::newRow("zero") << Joints{} << QVector<double>{890, 0, 1150, 0, 90, 0};
    QTest::newRow("base") << Joints{90} << QVector<double>{0, 890, 1150, 0, 90, 90};
    QTest::newRow("shoulder") << Joints{0, 90} << QVector<double>{850, 0, -290, 180, 0, 180};
    QTest::newRow("elbow") << Joints{0, 0, 90} << QVector<double>{250, 0, 310, 180, 0, 180};
    QTest::newRow("wrist bent") << Joints{0, 0, 0, 0, 90}
                                << QVector<double>{790, 0, 1050, 180, 0, 180};
    QTest::newRow("wrist to the side")
        << Joints{0, 0, 0, 90, 90} << QVector<double>{790, 100, 1150, 90, 0, 180};
    QTest::newRow("flange") << Joints{0, 0, 0, 0, 90, 30}
                            << QVector<double>{790, 0, 1050, 180, 0, 150};
}

void tst_Robot::knownPoses()
{
    QFETCH(Joints, joints);
    QFETCH(QVector<double>, flange);
    const arm::Pose pose = arm::toPose(arm::forward(joints));
    const QVector<double> got{pose.x, pose.y, pose.z, pose.a, pose.b, pose.c};
    QVERIFY2(isSamePose(got, flange), qPrintable(shown(got)));
}

void tst_Robot::inverseIsTheWayBack()
{
    const Joints near{10, 20, 10, 30, 40, 50};
    for (const double base : {-160.0, 0.0, 120.0}) {
        for (const double bent : {-80.0, 0.0, 60.0}) {
            for (const double turned : {-170.0, 5.0, 300.0}) {
                const Joints joints{base, 25, 5, 40, bent, turned};
                const auto back = arm::inverse(arm::forward(joints), joints);
                QVERIFY(back);
                for (size_t i = 0; i < joints.size(); ++i)
                    QVERIFY(std::abs(back->at(i) - joints[i]) < 1e-6);
                const auto other = arm::inverse(arm::forward(joints), near);
                QVERIFY(other);
                QVERIFY(arm::forward(*other).isApprox(arm::forward(joints), 1e-9));
            }
        }
    }
    QVERIFY(!arm::inverse(arm::toFrame({2000, 0, 500, 180, 0, 180}), near));
    QVERIFY(!arm::inverse(arm::toFrame({150, 0, 550, 0, 0, 0}), near));
}

void tst_Robot::seededPointsAreTrue()
{
    RobotBench bench;
    const QVariantList tools = bench.get("orbo.project", "tool._list").value.toList();
    const QVector<double> tip = numbers(childAt(tools.first(), "tcp.pose.frame"));
    const Frame tool = arm::toFrame({tip[0], tip[1], tip[2], tip[3], tip[4], tip[5]});
    const QVariantList points = bench.get("orbo.project", "point._list").value.toList();
    QVERIFY(!points.isEmpty());
    for (const QVariant &point : points) {
        Joints joints{};
        const QVariantList stored = childAt(point, "joint.q").toList();
        QCOMPARE(stored.size(), int(joints.size()));
        for (int i = 0; i < stored.size(); ++i)
            joints[i] = stored.at(i).toDouble();
        const Frame reached = arm::forward(joints) * tool;
        const QVector<double> pose = numbers(childAt(point, "cart.pose.frame"));
        const Frame wanted = arm::toFrame({pose[0], pose[1], pose[2], pose[3], pose[4], pose[5]});
        QVERIFY2((reached.translation() - wanted.translation()).norm() < 0.1,
                 qPrintable(childAt(point, "name").toString()));
        QVERIFY((reached.linear() - wanted.linear()).norm() < 1e-3);
    }
}

void tst_Robot::positionIsOfToolInWorkObject()
{
    RobotBench bench;
    const QVector<double> base = bench.pose("tool0", "wobj0");
    const QVector<double> fixture = bench.pose("tool0", "fixture1");
    QVERIFY(
        isSamePose(fixture, {base[0] - 600, base[1], base[2] - 150, base[3], base[4], base[5]}));
    const QVector<double> tip = bench.pose();
    const double away = std::hypot(tip[0] - base[0], tip[1] - base[1], tip[2] - base[2]);
    QVERIFY(std::abs(away - 380) < 1e-6);
    QCOMPARE(childAt(bench.position().value, "q").toList().size(), 6);
}

void tst_Robot::positionRefuses_data()
{
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<int>("code");
    const auto with = [](const QVariantMap &parameters) {
        return QVariant(QVariantMap{{"parameters", parameters}});
    };
    QTest::newRow("nothing") << QVariant() << int(BadPayload);
    QTest::newRow("tool alone") << with({{"tool", "tool0"}}) << int(BadPayload);
    QTest::newRow("no such tool") << with({{"tool", "t9"}, {"wobj", "wobj0"}}) << int(OutOfRange);
    QTest::newRow("no such object") << with({{"tool", "tool0"}, {"wobj", "w9"}}) << int(OutOfRange);
}

void tst_Robot::positionRefuses()
{
    QFETCH(QVariant, payload);
    RobotBench bench;
    QTEST(bench.run(getPosition, payload).code, "code");
}

void tst_Robot::linearGoesStraight()
{
    RobotBench bench;
    QCOMPARE(bench.run(moveTo, move("joint", p3)).code, int(Ok));
    bench.passTime(longEnough);
    QVERIFY(isSamePose(bench.pose(), p3));
    QCOMPARE(bench.run(moveTo, move("linear", p4)).code, int(Ok));
    QVERIFY(bench.controller.isBusy());
    bench.passTime(800); // half of 400 mm
    QVERIFY(isSamePose(bench.pose(), {800, 0, 200, 180, 35, 180}));
    QVERIFY(bench.controller.isBusy());
    bench.passTime(800);
    QVERIFY(isSamePose(bench.pose(), p4));
    QVERIFY(!bench.controller.isBusy());
}

void tst_Robot::jointTurnsEvenly()
{
    RobotBench bench;
    const auto base = [&bench] {
        return childAt(bench.position().value, "q").toList().first().toDouble();
    };
    bench.run(moveTo, move("joint", p3));
    bench.passTime(longEnough);
    const double from = base();
    bench.run(moveTo, move("joint", p4));
    qint64 passed = 0;
    while (bench.controller.isBusy()) {
        const double before = base();
        bench.passTime(10);
        QVERIFY(std::abs(base() - before) < 0.3 + 1e-9); // 30 degrees a second at most
        passed += 10;
        QVERIFY(passed < longEnough);
    }
    QVERIFY(isSamePose(bench.pose(), p4));
    QVERIFY(std::abs(base() + from) < 1e-6);
    // The tip swings out on the way, where the straight way stays at x = 800.
    bench.run(moveTo, move("joint", p3));
    bench.passTime(passed / 2);
    QVERIFY(bench.pose()[0] > 810);
}

void tst_Robot::arrivesInTheFrameOfThePoint_data()
{
    QTest::addColumn<QString>("wobj");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QVector<double>>("target");
    QTest::addColumn<QVector<double>>("arrived"); // torch1 in wobj0
    const QVector<double> turned{200, 800, 200, 180, 35, -90};
    QTest::newRow("base") << "default"
                          << "default"
                          << "torch1" << p3 << p3;
    QTest::newRow("built in") << "wobj0"
                              << "world"
                              << "torch1" << p3 << p3;
    QTest::newRow("fixture") << "fixture1"
                             << "world"
                             << "torch1" << QVector<double>{200, -200, 50, 180, 35, 180} << p3;
    QTest::newRow("its own user frame") << "turned"
                                        << "default"
                                        << "torch1" << p3 << turned;
    QTest::newRow("named user frame") << "wobj0"
                                      << "quarter"
                                      << "torch1" << p3 << turned;
    QTest::newRow("chosen tool") << "wobj0"
                                 << "world"
                                 << "" << p3 << p3;
}

void tst_Robot::arrivesInTheFrameOfThePoint()
{
    QFETCH(QString, wobj);
    QFETCH(QString, user);
    QFETCH(QString, tool);
    QFETCH(QVector<double>, target);
    QFETCH(QVector<double>, arrived);
    RobotBench bench;
    const QVariantMap quarter{{"pose", QVariantMap{{"frame", frameMap({0, 0, 0, 0, 0, 90})}}}};
    const QVariantMap frame{{"id", "quarter"}, {"name", "quarter"}, {"frame", quarter}};
    QCOMPARE(bench.set("orbo.project", "user_frame._list", QVariantList{frame}).code, int(Ok));
    QVariantList objects = bench.get("orbo.project", "wobj._list").value.toList();
    objects.append(QVariantMap{{"id", "turned"}, {"name", "turned"}, {"user_frame", "quarter"}});
    QCOMPARE(bench.set("orbo.project", "wobj._list", objects).code, int(Ok));
    QCOMPARE(bench.run(moveTo, move("joint", target, wobj, user, tool)).code, int(Ok));
    bench.passTime(longEnough);
    QVERIFY2(isSamePose(bench.pose(), arrived), qPrintable(shown(bench.pose())));
}

void tst_Robot::stops()
{
    RobotBench bench;
    QCOMPARE(bench.run(stopMove, QVariantMap{{"stoptype", 1}}, "request").code, int(Ok));
    bench.run(moveTo, move("joint", p3));
    bench.passTime(longEnough);
    bench.run(moveTo, move("linear", p4));
    bench.passTime(400);
    QCOMPARE(bench.run(stopMove, QVariant()).code, int(Ok));
    QVERIFY(!bench.controller.isBusy());
    bench.passTime(longEnough);
    QVERIFY(isSamePose(bench.pose(), {800, -100, 200, 180, 35, 180}));
}

void tst_Robot::refuses_data()
{
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<int>("code");
    const auto without = [](const QString &key) {
        QVariantMap payload = move("joint", p3);
        payload.remove(key);
        return QVariant(payload);
    };
    QTest::newRow("nothing") << QVariant() << int(BadPayload);
    QTest::newRow("no target") << without("cartesian") << int(BadPayload);
    QTest::newRow("no frame") << without("coordinate") << int(BadPayload);
    QTest::newRow("no way") << without("movetype") << int(BadPayload);
    QTest::newRow("unknown way") << QVariant(move("curved", p3)) << int(BadPayload);
    QTest::newRow("not a number") << QVariant(move("joint", {qQNaN(), 0, 0, 0, 0, 0}))
                                  << int(BadPayload);
    QTest::newRow("far away") << QVariant(move("joint", {2500, 0, 200, 180, 0, 180}))
                              << int(OutOfRange);
    QTest::newRow("no such object") << QVariant(move("joint", p3, "w9")) << int(OutOfRange);
    QTest::newRow("no such user frame")
        << QVariant(move("joint", p3, "wobj0", "u9")) << int(OutOfRange);
    QTest::newRow("no such tool") << QVariant(move("joint", p3, "wobj0", "default", "t9"))
                                  << int(OutOfRange);
}

void tst_Robot::refuses()
{
    QFETCH(QVariant, payload);
    RobotBench bench;
    const QVector<double> before = bench.pose();
    QTEST(bench.run(moveTo, payload).code, "code");
    QVERIFY(!bench.controller.isBusy());
    bench.passTime(longEnough);
    QCOMPARE(bench.pose(), before);
}

// The arm gets to both ends, but not along the straight way between them, close past its base.
void tst_Robot::straightWayHasToBeFree()
{
    RobotBench bench;
    const QVector<double> behind{-592.8, 573.2, -30, 180, 35, -30};
    bench.run(moveTo, move("joint", {800, -200, -30, 180, 35, 180}));
    bench.passTime(longEnough);
    QCOMPARE(bench.run(moveTo, move("linear", behind)).code, int(OutOfRange));
    QVERIFY(!bench.controller.isBusy());
    QCOMPARE(bench.run(moveTo, move("joint", behind)).code, int(Ok));
    bench.passTime(longEnough);
    QVERIFY(isSamePose(bench.pose(), behind));
}

void tst_Robot::oneMoveAtATime()
{
    RobotBench bench;
    bench.run(moveTo, move("joint", p3));
    bench.passTime(100);
    QCOMPARE(bench.run(moveTo, move("joint", p4)).code, int(WrongState));
    bench.passTime(longEnough);
    QVERIFY(isSamePose(bench.pose(), p3));
    QCOMPARE(bench.run(moveTo, move("joint", p4)).code, int(Ok));
}

QTEST_GUILESS_MAIN(tst_Robot)
#include "tst_robot.moc"
