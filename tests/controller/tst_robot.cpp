#include <QtTest>

#include "programfixture.h"
#include "support/datarows.h"

using namespace welmo::controller;
using namespace testsupport;

namespace {

constexpr char moveTo[] = "motion.move.to_point";
constexpr int longEnough = 60000;
// The arm reaches this place, but not in a straight line from p1, which passes its base.
const Vector3d behind(-800, 200, 500);

} // namespace

/// The simulated robot moves as a command or a line of a program says.
class tst_Robot : public QObject
{
    Q_OBJECT
private slots:
    void movesGoWhereTheySay_data()
    {
        addRows<QString, Vector3d>(
            {{"joint", "MoveJ p3,v200,z5,torch1,wobj0", p3},
             {"circular", "MoveC p7,p8,v200,z5,torch1", {700, 100, 200}},
             {"offset", "MoveL Offs(p3,-10,20.5,30),v200,z5,torch1", {790, -179.5, 230}},
             // At p1 the torch points down: its z and x are the world's -z and -x.
             {"tool", "MoveL RelTool(p1,10,0,40,0,0,0),v200,z5,torch1", {790, -200, 460}},
             {"by object", "MoveL Offs(p3,-600,0,0),v200,z5,torch1,fixture1", {800, -200, 350}}});
    }
    void movesGoWhereTheySay()
    {
        const auto &[name, line, place] = currentRow<QString, Vector3d>();
        ProgramFixture fixture;
        QVERIFY(fixture.isAt(p1));
        fixture.go({line});
        QVERIFY(fixture.finish() > 100);
        QCOMPARE(fixture.state("message"), QVariant("finished"));
        QVERIFY(fixture.isAt(place));
    }
    // Three quarters of a circle of 100 mm around (700, 0, 200).
    void circle()
    {
        ProgramFixture fixture;
        fixture.go(
            {"MoveL p6,v1000,fine,torch1", "WMoveC p7,Offs(p7,-200,0,0),v50,fine,torch1,wobj0"});
        QVERIFY(fixture.passUntilLine(2));
        const qint64 began = fixture.now;
        while (fixture.state("state") == "running") {
            fixture.pass(50);
            QVERIFY(qAbs((fixture.tip() - Vector3d(700, 0, 200)).norm() - 100) < 0.01);
        }
        QVERIFY(fixture.isAt({600, 0, 200}));
        QVERIFY(qAbs((fixture.now - began) / 1000.0 - 1.5 * M_PI * 100 / 50) < 0.1);
    }
    void weavesWithinItsAmplitude()
    {
        ProgramFixture fixture;
        fixture.save("weave_param",
                     QVariantMap{{"name", "weavedata3"},
                                 {"pattern", "triangular"},
                                 {"weaving_reference", "cycle"},
                                 {"weave_length_frequency", 1.0},
                                 {"amplitude", QVariantMap{{"left", 4.0}, {"right", 2.0}}}});
        for (const bool byLine : {true, false}) {
            const QString weave = byLine ? ",wobj0,\"weavedata3\"" : "";
            fixture.go(
                {"MoveL p3,v1000,fine,torch1", byLine ? "WeaveOff" : "WeaveOn \"weavedata3\"",
                 "WMoveL p4,v50,fine,torch1" + weave, "WeaveOff", "WMoveL p3,v50,fine,torch1"});
            QVERIFY(fixture.passUntilLine(3));
            double low = 0;
            double high = 0;
            while (fixture.state("line") == 3) {
                fixture.pass(10);
                const Vector3d tip = fixture.tip();
                const double aside =
                    std::copysign(std::hypot(tip.x() - 800, tip.z() - 200), tip.x() - 800);
                low = qMin(low, aside);
                high = qMax(high, aside);
            }
            QVERIFY(high - low > 5.7 && high - low < 6.01);
            QVERIFY(qMax(high, -low) < 4.01 && qMax(high, -low) > 3.8);
            fixture.pass(1000);
            QVERIFY(qAbs(fixture.tip().x() - 800) < 0.01);
            fixture.run("tl_program.stop");
        }
    }
    void linearGoesStraightAndStops()
    {
        ProgramFixture fixture;
        QVERIFY(fixture.run("motion.move.stop", QVariantMap{{"stoptype", 1}}, "request").ok());
        QVERIFY(fixture.run(moveTo, ProgramFixture::target(p3)).ok());
        fixture.pass(longEnough);
        QVERIFY(fixture.isAt(p3));
        QVERIFY(fixture.run(moveTo, ProgramFixture::target(p4, "linear")).ok());
        fixture.pass(800); // half of the way
        QVERIFY(fixture.isAt({800, 0, 200}));
        QCOMPARE(fixture.run(moveTo, ProgramFixture::target(p3)).code, int(WrongState));
        fixture.pass(400);
        QVERIFY(fixture.run("motion.move.stop").ok());
        QVERIFY(!fixture.controller.isBusy());
        fixture.pass(longEnough);
        QVERIFY(fixture.isAt({800, 100, 200}));
        QVERIFY(fixture.run(moveTo, ProgramFixture::target(p3)).ok());
        fixture.pass(300);
        QVERIFY(fixture.tip().x() > 805); // a joint move makes a bow
    }
    void arrivesInTheFrameOfThePoint_data()
    {
        const Vector3d turned(200, 800, 200);
        addRows<QString, QString, QString, Vector3d, Vector3d>(
            {// work object, user frame, tool, target; where torch1 is then in wobj0
             {"fixture", "fixture1", "world", "torch1", {200, -200, 50}, p3},
             {"its own user frame", "turned", "default", "torch1", p3, turned},
             {"named user frame", "wobj0", "quarter", "torch1", p3, turned},
             {"chosen tool", "wobj0", "world", "", p3, p3}});
    }
    void arrivesInTheFrameOfThePoint()
    {
        const auto &[name, wobj, user, tool, place, arrived] =
            currentRow<QString, QString, QString, Vector3d, Vector3d>();
        const QVariantMap quarter =
            withChild({{"id", "quarter"}, {"name", "quarter"}}, "frame.pose.frame.ori.euler",
                      QVariantMap{{"a", 0}, {"b", 0}, {"c", 90}});
        const QVariantMap object{{"id", "turned"}, {"name", "turned"}, {"user_frame", "quarter"}};
        ProgramFixture fixture;
        QVERIFY(fixture.set("orbo.project", "user_frame._list", QVariantList{quarter}).ok());
        QVariantList objects = fixture.get("orbo.project", "wobj._list").value.toList();
        objects.append(object);
        QVERIFY(fixture.set("orbo.project", "wobj._list", objects).ok());
        const QVariantMap target = ProgramFixture::target(place, "joint", wobj, user, tool);
        QVERIFY(fixture.run(moveTo, target).ok());
        fixture.pass(longEnough);
        QVERIFY(fixture.isAt(arrived));
    }
    void refuses_data()
    {
        const auto target = &ProgramFixture::target;
        const QVariantMap good = target(p3, "joint", "wobj0", "default", "torch1");
        const QVariantMap unknown{{"tool", "t9"}, {"wobj", "wobj0"}};
        addRows<const char *, QVariant, int>(
            {{"no target", moveTo, without(good, "cartesian"), BadPayload},
             {"unknown way", moveTo, with(good, "movetype", "curved"), BadPayload},
             {"no tool", moveTo, with(good, "tool", "t9"), OutOfRange},
             {"no object", moveTo, target(p3, "joint", "w9", "default", "torch1"), OutOfRange},
             {"no user frame", moveTo, target(p3, "joint", "wobj0", "u9", "torch1"), OutOfRange},
             {"not straight", moveTo, target(behind, "linear", "wobj0", "default", "torch1"),
              OutOfRange},
             {"unknown", "tl_program.get_rob_pos", QVariantMap{{"parameters", unknown}},
              OutOfRange}});
    }
    void refuses()
    {
        const auto &[name, command, payload, code] = currentRow<const char *, QVariant, int>();
        ProgramFixture fixture;
        QCOMPARE(fixture.run(command, payload).code, code);
        QVERIFY(!fixture.controller.isBusy());
        QVERIFY(fixture.isAt(p1));
        QVERIFY(fixture.run(moveTo, ProgramFixture::target(behind)).ok());
        fixture.pass(longEnough);
        QVERIFY(fixture.isAt(behind));
    }
};

QTEST_GUILESS_MAIN(tst_Robot)
#include "tst_robot.moc"
