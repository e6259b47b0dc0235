#include <QtTest>

#include "programbench.h"
#include "support/rows.h"

using namespace controller;
using Eigen::Vector3d;
using testsupport::Rows;

namespace {

constexpr char moveTo[] = "motion.move.to_point";
constexpr int longEnough = 60000;

} // namespace

/// The simulated robot: where it says it is, how it moves and stops.
class tst_Robot : public QObject
{
    Q_OBJECT
private slots:
    void linearGoesStraightAndStops()
    {
        ProgramBench bench;
        QVERIFY(bench.run("motion.move.stop", QVariantMap{{"stoptype", 1}}, "request").ok());
        QVERIFY(bench.run(moveTo, ProgramBench::target(p3)).ok());
        bench.pass(longEnough);
        QVERIFY(bench.isAt(p3));
        QVERIFY(bench.run(moveTo, ProgramBench::target(p4, "linear")).ok());
        bench.pass(800); // half of 400 mm
        QVERIFY(bench.isAt({800, 0, 200}));
        QCOMPARE(bench.run(moveTo, ProgramBench::target(p3)).code, int(WrongState));
        bench.pass(400);
        QVERIFY(bench.run("motion.move.stop").ok());
        QVERIFY(!bench.controller.isBusy());
        bench.pass(longEnough);
        QVERIFY(bench.isAt({800, 100, 200}));
        QVERIFY(bench.run(moveTo, ProgramBench::target(p3)).ok());
        bench.pass(300);
        QVERIFY(bench.tip().x() > 805); // the arm swings
    }
    void arrivesInTheFrameOfThePoint()
    {
        const Vector3d turned(200, 800, 200);
        const Rows<QString, QString, QString, Vector3d, Vector3d> rows{
            // work object, user frame, tool; what is asked, and where torch1 then is in wobj0
            {"fixture", "fixture1", "world", "torch1", {200, -200, 50}, p3},
            {"its own user frame", "turned", "default", "torch1", p3, turned},
            {"named user frame", "wobj0", "quarter", "torch1", p3, turned},
            {"chosen tool", "wobj0", "world", "", p3, p3},
        };
        const QVariantMap quarter =
            withChild({{"id", "quarter"}, {"name", "quarter"}}, "frame.pose.frame.ori.euler",
                      QVariantMap{{"a", 0}, {"b", 0}, {"c", 90}});
        const QVariantMap object{{"id", "turned"}, {"name", "turned"}, {"user_frame", "quarter"}};
        for (const auto &[name, wobj, user, tool, place, arrived] : rows) {
            ProgramBench bench;
            QVERIFY(bench.set("orbo.project", "user_frame._list", QVariantList{quarter}).ok());
            QVariantList objects = bench.get("orbo.project", "wobj._list").value.toList();
            objects.append(object);
            QVERIFY(bench.set("orbo.project", "wobj._list", objects).ok());
            const QVariantMap target = ProgramBench::target(place, "joint", wobj, user, tool);
            QVERIFY(bench.run(moveTo, target).ok());
            bench.pass(longEnough);
            QVERIFY(bench.isAt(arrived));
        }
    }
    void refuses()
    {
        constexpr char getPosition[] = "tl_program.get_rob_pos";
        const auto target = &ProgramBench::target;
        const QVariantMap good = target(p3, "joint", "wobj0", "default", "torch1");
        const auto asking = [](const QVariantMap &parameters) {
            return QVariantMap{{"parameters", parameters}};
        };
        const Rows<const char *, QVariant, int> rows{
            {"no target", moveTo, without(good, "cartesian"), BadPayload},
            {"unknown way", moveTo, with(good, "movetype", "curved"), BadPayload},
            {"no tool", moveTo, with(good, "tool", "t9"), OutOfRange},
            {"no object", moveTo, target(p3, "joint", "w9", "default", "torch1"), OutOfRange},
            {"no user frame", moveTo, target(p3, "joint", "wobj0", "u9", "torch1"), OutOfRange},
            {"unknown", getPosition, asking({{"tool", "t9"}, {"wobj", "wobj0"}}), OutOfRange},
        };
        ProgramBench bench;
        for (const auto &[name, command, payload, code] : rows) {
            QCOMPARE(bench.run(command, payload).code, code);
            QVERIFY(!bench.controller.isBusy());
        }
        // The arm gets to both ends, but not straight between them, close past its base.
        const Vector3d behind(-800, 200, 500);
        QCOMPARE(bench.run(moveTo, ProgramBench::target(behind, "linear")).code, int(OutOfRange));
        QVERIFY(bench.isAt(p1));
        QVERIFY(bench.run(moveTo, ProgramBench::target(behind)).ok());
        bench.pass(longEnough);
        QVERIFY(bench.isAt(behind));
    }
};

QTEST_GUILESS_MAIN(tst_Robot)
#include "tst_robot.moc"
