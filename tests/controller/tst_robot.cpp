#include <QtTest>

#include "programbench.h"
#include "support/rows.h"

using namespace welmo::controller;
using Eigen::Vector3d;
using testsupport::Rows;

namespace {

constexpr char moveTo[] = "motion.move.to_point";
constexpr int longEnough = 60000;

} // namespace

/// The simulated robot goes where a command or the line of a program says, and stops.
class tst_Robot : public QObject
{
    Q_OBJECT
private slots:
    void movesGoWhereTheySay()
    {
        const Rows<QString, Vector3d> rows{
            {"joint", "MoveJ p3,v200,z5,torch1,wobj0", p3},
            {"circular", "MoveC p7,p8,v200,z5,torch1", {700, 100, 200}},
            {"offset", "MoveL Offs(p3,-10,20.5,30),v200,z5,torch1", {790, -179.5, 230}},
            // The torch at p1 points down: its z is the world's -z, its x the world's -x there.
            {"tool", "MoveL RelTool(p1,10,0,40,0,0,0),v200,z5,torch1", {790, -200, 460}},
            {"in another work object",
             "MoveL Offs(p3,-600,0,0),v200,z5,torch1,fixture1",
             {800, -200, 350}},
        };
        for (const auto &[name, line, place] : rows) {
            ProgramBench bench;
            QVERIFY(bench.isAt(p1));
            bench.go({line});
            QVERIFY(bench.finish() > 100);
            QCOMPARE(bench.state("message"), QVariant("finished"));
            QVERIFY(bench.isAt(place));
        }
    }
    // From p6 over p7 the circle has 100 mm around (700, 0, 200); three quarters of it.
    void circle()
    {
        ProgramBench bench;
        bench.go(
            {"MoveL p6,v1000,fine,torch1", "WMoveC p7,Offs(p7,-200,0,0),v50,fine,torch1,wobj0"});
        QVERIFY(bench.passUntilLine(2));
        const qint64 began = bench.now;
        while (bench.state("state") == "running") {
            bench.pass(50);
            QVERIFY(qAbs((bench.tip() - Vector3d(700, 0, 200)).norm() - 100) < 0.01);
        }
        QVERIFY(bench.isAt({600, 0, 200}));
        QVERIFY(qAbs((bench.now - began) / 1000.0 - 1.5 * M_PI * 100 / 50) < 0.1);
    }
    void weavesWithinItsAmplitude()
    {
        ProgramBench bench;
        bench.save("weave_param",
                   QVariantMap{{"name", "weavedata3"},
                               {"pattern", "triangular"},
                               {"weaving_reference", "cycle"},
                               {"weave_length_frequency", 1.0},
                               {"amplitude", QVariantMap{{"left", 4.0}, {"right", 2.0}}}});
        for (const bool byLine : {true, false}) {
            const QString weave = byLine ? ",wobj0,\"weavedata3\"" : "";
            bench.go({"MoveL p3,v1000,fine,torch1", byLine ? "WeaveOff" : "WeaveOn \"weavedata3\"",
                      "WMoveL p4,v50,fine,torch1" + weave, "WeaveOff",
                      "WMoveL p3,v50,fine,torch1"});
            QVERIFY(bench.passUntilLine(3));
            double low = 0;
            double high = 0;
            while (bench.state("line") == 3) {
                bench.pass(10);
                const Vector3d tip = bench.tip();
                const double aside =
                    std::copysign(std::hypot(tip.x() - 800, tip.z() - 200), tip.x() - 800);
                low = qMin(low, aside);
                high = qMax(high, aside);
            }
            QVERIFY(high - low > 5.7 && high - low < 6.01);
            QVERIFY(qMax(high, -low) < 4.01 && qMax(high, -low) > 3.8);
            bench.pass(1000);
            QVERIFY(qAbs(bench.tip().x() - 800) < 0.01);
            bench.run("tl_program.stop");
        }
    }
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
