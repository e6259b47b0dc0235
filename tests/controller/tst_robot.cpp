#include <QtTest>
#include <cmath>

#include "controller/fields.h"
#include "controller/robotarm.h"
#include "controllerbench.h"
#include "support/rows.h"

using namespace controller;
using Pose = QVector<double>; // x, y, z, a, b, c
using testsupport::Rows;

namespace {

constexpr char getPosition[] = "tl_program.get_rob_pos";
constexpr char moveTo[] = "motion.move.to_point";
constexpr char stopMove[] = "motion.move.stop";
constexpr qint64 longEnough = 60000;

const Pose p3{800, -200, 200, 180, 35, 180};
const Pose p4{800, 200, 200, 180, 35, 180};

Pose poseOf(const QVariant &frame)
{
    Pose result;
    for (const char *path :
         {"pos.x", "pos.y", "pos.z", "ori.euler.a", "ori.euler.b", "ori.euler.c"})
        result.append(childAt(frame, path).toDouble());
    return result;
}

Frame frameOf(const Pose &p)
{
    return arm::toFrame({p[0], p[1], p[2], p[3], p[4], p[5]});
}

// Both ways to say the same orientation count as the same.
bool isSamePose(const Pose &got, const Pose &expected)
{
    const bool same = frameOf(got).isApprox(frameOf(expected), 1e-6);
    if (!same)
        qWarning() << got;
    return same;
}

QVariantMap frameMap(const Pose &p)
{
    return {{"pos", QVariantMap{{"x", p[0]}, {"y", p[1]}, {"z", p[2]}}},
            {"ori", QVariantMap{{"euler", QVariantMap{{"a", p[3]}, {"b", p[4]}, {"c", p[5]}}}}}};
}

QVariantMap move(const QString &way, const Pose &pose, const QString &wobj = "wobj0",
                 const QString &user = "default", const QString &tool = "torch1")
{
    const QVariantMap coordinate{{"user_frame", user}, {"wobj", QVariantMap{{"name", wobj}}}};
    return withChild(QVariantMap{{"coordinate", coordinate}, {"movetype", way}, {"tool", tool}},
                     "cartesian.pose.frame", frameMap(pose));
}

struct RobotBench : ControllerBench
{
    Reply position(const QString &tool = "torch1", const QString &wobj = "wobj0")
    {
        const QVariantMap parameters{{"tool", tool}, {"wobj", wobj}};
        return run(getPosition,
                   QVariantMap{{"target", ""}, {"parameters", parameters}, {"wait", true}});
    }
    Pose pose(const QString &tool = "torch1", const QString &wobj = "wobj0")
    {
        return poseOf(childAt(position(tool, wobj).value, "pose.frame"));
    }
    QVariantList joints() { return childAt(position().value, "q").toList(); }
    void passTime(qint64 milliseconds)
    {
        now += milliseconds;
        controller.tick();
    }
    /// Goes there; says whether it set off.
    bool go(const QVariantMap &payload)
    {
        const bool good = run(moveTo, payload).ok() && controller.isBusy();
        passTime(longEnough);
        return good && !controller.isBusy();
    }
};

} // namespace

/// The simulated robot: its arm, where it says it is, how it moves and stops.
class tst_Robot : public QObject
{
    Q_OBJECT
private slots:
    void seededPointsAreTrue()
    {
        RobotBench bench;
        const QVariantList tools = bench.get("orbo.project", "tool._list").value.toList();
        const Frame tool = frameOf(poseOf(childAt(tools.first(), "tcp.pose.frame")));
        const QVariantList points = bench.get("orbo.project", "point._list").value.toList();
        QVERIFY(!points.isEmpty());
        for (const QVariant &point : points) {
            Joints joints{};
            const QVariantList stored = childAt(point, "joint.q").toList();
            QCOMPARE(stored.size(), int(joints.size()));
            for (int i = 0; i < stored.size(); ++i)
                joints[size_t(i)] = stored.at(i).toDouble();
            const Frame reached = arm::forward(joints) * tool;
            const Frame wanted = frameOf(poseOf(childAt(point, "cart.pose.frame")));
            QVERIFY2((reached.translation() - wanted.translation()).norm() < 0.1,
                     qPrintable(childAt(point, "name").toString()));
            QVERIFY((reached.linear() - wanted.linear()).norm() < 1e-3);
        }
    }
    void positionIsOfToolInWorkObject()
    {
        RobotBench bench;
        const Pose base = bench.pose("tool0", "wobj0");
        QVERIFY(isSamePose(bench.pose("tool0", "fixture1"),
                           {base[0] - 600, base[1], base[2] - 150, base[3], base[4], base[5]}));
        const Pose tip = bench.pose();
        const double away = std::hypot(tip[0] - base[0], tip[1] - base[1], tip[2] - base[2]);
        QVERIFY(std::abs(away - 380) < 1e-6);
        QCOMPARE(bench.joints().size(), 6);
    }
    void linearGoesStraightAndStops()
    {
        RobotBench bench;
        QVERIFY(bench.run(stopMove, QVariantMap{{"stoptype", 1}}, "request").ok());
        QVERIFY(bench.go(move("joint", p3)));
        QVERIFY(isSamePose(bench.pose(), p3));
        QVERIFY(bench.run(moveTo, move("linear", p4)).ok());
        bench.passTime(800); // half of 400 mm
        QVERIFY(isSamePose(bench.pose(), {800, 0, 200, 180, 35, 180}));
        QCOMPARE(bench.run(moveTo, move("joint", p3)).code, int(WrongState)); // one at a time
        bench.passTime(400);
        QVERIFY(bench.run(stopMove).ok());
        QVERIFY(!bench.controller.isBusy());
        bench.passTime(longEnough);
        QVERIFY(isSamePose(bench.pose(), {800, 100, 200, 180, 35, 180}));
        QVERIFY(bench.go(move("linear", p4)));
        QVERIFY(isSamePose(bench.pose(), p4));
    }
    void jointTurnsEvenly()
    {
        RobotBench bench;
        const auto base = [&bench] { return bench.joints().first().toDouble(); };
        QVERIFY(bench.go(move("joint", p3)));
        const double from = base();
        bench.run(moveTo, move("joint", p4));
        double swing = 0; // of the tip, where the straight way stays at x = 800
        for (int passed = 0; bench.controller.isBusy(); passed += 10) {
            const double before = base();
            bench.passTime(10);
            QVERIFY(std::abs(base() - before) < 0.3 + 1e-9); // 30 degrees a second at most
            QVERIFY(passed < longEnough);
            swing = std::max(swing, bench.pose()[0] - 800);
        }
        QVERIFY(isSamePose(bench.pose(), p4));
        QVERIFY(std::abs(base() + from) < 1e-6);
        QVERIFY(swing > 10);
    }
    void arrivesInTheFrameOfThePoint()
    {
        const Pose inFixture{200, -200, 50, 180, 35, 180};
        const Pose turned{200, 800, 200, 180, 35, -90};
        const Rows<QString, QString, QString, Pose, Pose> rows{
            // work object, user frame, tool; what is asked, and where torch1 then is in wobj0
            {"base", "default", "default", "torch1", p3, p3},
            {"built in", "wobj0", "world", "torch1", p3, p3},
            {"fixture", "fixture1", "world", "torch1", inFixture, p3},
            {"its own user frame", "turned", "default", "torch1", p3, turned},
            {"named user frame", "wobj0", "quarter", "torch1", p3, turned},
            {"chosen tool", "wobj0", "world", "", p3, p3},
        };
        const QVariantMap quarter{{"pose", QVariantMap{{"frame", frameMap({0, 0, 0, 0, 0, 90})}}}};
        const QVariantMap frame{{"id", "quarter"}, {"name", "quarter"}, {"frame", quarter}};
        const QVariantMap object{{"id", "turned"}, {"name", "turned"}, {"user_frame", "quarter"}};
        for (const auto &[name, wobj, user, tool, target, arrived] : rows) {
            RobotBench bench;
            QVERIFY(bench.set("orbo.project", "user_frame._list", QVariantList{frame}).ok());
            QVariantList objects = bench.get("orbo.project", "wobj._list").value.toList();
            objects.append(object);
            QVERIFY(bench.set("orbo.project", "wobj._list", objects).ok());
            QVERIFY(bench.go(move("joint", target, wobj, user, tool)));
            QVERIFY(isSamePose(bench.pose(), arrived));
        }
    }
    void refuses()
    {
        const QVariantMap good = move("joint", p3);
        const QVariantMap known{{"tool", "tool0"}, {"wobj", "wobj0"}};
        const auto asking = [](const QVariantMap &parameters) {
            return QVariantMap{{"parameters", parameters}};
        };
        const Rows<const char *, QVariant, int> rows{
            {"nothing", moveTo, QVariant(), BadPayload},
            {"no target", moveTo, without(good, "cartesian"), BadPayload},
            {"no frame", moveTo, without(good, "coordinate"), BadPayload},
            {"no way", moveTo, without(good, "movetype"), BadPayload},
            {"unknown way", moveTo, move("curved", p3), BadPayload},
            {"not a number", moveTo, move("joint", {qQNaN(), 0, 0, 0, 0, 0}), BadPayload},
            {"far away", moveTo, move("joint", {2500, 0, 200, 180, 0, 180}), OutOfRange},
            {"no such object", moveTo, move("joint", p3, "w9"), OutOfRange},
            {"no such user frame", moveTo, move("joint", p3, "wobj0", "u9"), OutOfRange},
            {"no such tool", moveTo, move("joint", p3, "wobj0", "default", "t9"), OutOfRange},
            {"asked for nothing", getPosition, QVariant(), BadPayload},
            {"tool alone", getPosition, asking(without(known, "wobj")), BadPayload},
            {"unknown tool", getPosition, asking(with(known, "tool", "t9")), OutOfRange},
            {"unknown object", getPosition, asking(with(known, "wobj", "w9")), OutOfRange},
        };
        for (const auto &[name, command, payload, code] : rows) {
            RobotBench bench;
            const Pose before = bench.pose();
            QCOMPARE(bench.run(command, payload).code, code);
            QVERIFY(!bench.controller.isBusy());
            bench.passTime(longEnough);
            QCOMPARE(bench.pose(), before);
        }
    }
    // The arm gets to both ends, but not along the straight way between them, close past its base.
    void straightWayHasToBeFree()
    {
        RobotBench bench;
        const Pose behind{-592.8, 573.2, -30, 180, 35, -30};
        QVERIFY(bench.go(move("joint", {800, -200, -30, 180, 35, 180})));
        QCOMPARE(bench.run(moveTo, move("linear", behind)).code, int(OutOfRange));
        QVERIFY(!bench.controller.isBusy());
        QVERIFY(bench.go(move("joint", behind)));
        QVERIFY(isSamePose(bench.pose(), behind));
    }
};

QTEST_GUILESS_MAIN(tst_Robot)
#include "tst_robot.moc"
