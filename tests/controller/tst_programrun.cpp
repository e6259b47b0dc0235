#include <QtTest>

#include "controller/programline.h"
#include "programbench.h"

using namespace controller;
using Eigen::Vector3d;
using Fault = Faults::Fault;
using Event = Journal::Event;

namespace {

const Vector3d p1(800, -200, 500);
const Vector3d p3(800, -200, 200);
const Vector3d p4(800, 200, 200);

const QStringList seam{"MoveL p3,v1000,fine,torch1,wobj0", "ArcOn \"arcondata1\",\"arcdata1\"",
                       "WMoveL Offs(p3,0,100,0),v50,fine,torch1", "ArcOff \"arcoffdata1\""};

bool isAt(ProgramBench &bench, const Vector3d &place, double mm = 0.01)
{
    const double off = (bench.tip() - place).norm();
    if (off > mm)
        qWarning() << "off by" << off;
    return off <= mm;
}

QVariantMap with(QVariantMap map, const QString &key, const QVariant &value)
{
    map[key] = value;
    return map;
}

} // namespace

Q_DECLARE_METATYPE(QVector<controller::Journal::Event>)

/// A program goes where its lines say, welds what they say, and ends with a reason.
class tst_ProgramRun : public QObject
{
    Q_OBJECT
private slots:
    void linesAreRead_data();
    void linesAreRead();
    void pointsAreRead_data();
    void pointsAreRead();
    void modes_data();
    void modes();
    void movesGoWhereTheySay_data();
    void movesGoWhereTheySay();
    void circle_data();
    void circle();
    void straightCircleIsALine();
    void weavesWithinItsAmplitude();
    void timedLines_data();
    void timedLines();
    void timedLineThatIsStopped();
    void unknownLinesAreIgnoredAloud();
    void mistakes_data();
    void mistakes();
    void pauseAndGoOn();
    void stop();
    void commandsInTheWrongState();
    void robotIsTheProgramsAlone();
    void weldFaults_data();
    void weldFaults();
    void reignitesWhereItBroke();
    void stuckWireHasToBeFreed();
    void savingActsOnTheRunningWeld();
    void nameFollowsThePhase();
    void valuesComeAtTheRate_data();
    void valuesComeAtTheRate();
    void ratesOutOfRange();
    void journalCanBeRead();
};

void tst_ProgramRun::linesAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected"); // number|word|arguments
    QTest::newRow("empty") << "" << QStringList();
    QTest::newRow("words") << "WeaveOff\n\n  ArcOff \"a b,c\" ;\r\n"
                           << QStringList{"1|WeaveOff", "3|ArcOff|\"a b,c\""};
    QTest::newRow("call") << "WMoveL Offs(p1, 1,-2.5 ,0), v1,fine,\ttool0"
                          << QStringList{"1|WMoveL|Offs(p1, 1,-2.5 ,0)|v1|fine|tool0"};
    QTest::newRow("no blank") << "ArcOn\"a\",\"b\"" << QStringList{"1|ArcOn|\"a\"|\"b\""};
    QTest::newRow("comments") << "// a\n# b\n!c\nWeaveOff // d\nArcOff \"//\"//"
                              << QStringList{"4|WeaveOff", "5|ArcOff|\"//\""};
    QTest::newRow("holes") << "F ,a,\n\"x\"" << QStringList{"1|F||a|", "2||\"x\""};
    QTest::newRow("half") << "F (a,b\nG a),b" << QStringList{"1|F|(a,b", "2|G|a)|b"};
}

void tst_ProgramRun::linesAreRead()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    QStringList lines;
    for (const ProgramLine &line : readProgram(text))
        lines.append(
            (QStringList{QString::number(line.number), line.word} + line.arguments).join('|'));
    QCOMPARE(lines, expected);
}

void tst_ProgramRun::pointsAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected"); // kind, name, numbers; empty: refused
    QTest::newRow("plain") << "p1"
                           << "0 p1 0 0 0 0 0 0";
    QTest::newRow("offset") << "Offs(p1,1.5,-2,3e1)"
                            << "1 p1 1.5 -2 30 0 0 0";
    QTest::newRow("offset, short") << "Offs( p1 , 1 )"
                                   << "1 p1 1 0 0 0 0 0";
    QTest::newRow("tool") << "RelTool(p2,1,2,3,4,5,6)"
                          << "2 p2 1 2 3 4 5 6";
    QTest::newRow("tool, other spelling") << "Reltool(p2,0,0,7)"
                                          << "2 p2 0 0 7 0 0 0";
    QTest::newRow("unknown") << "Offset(p1,1,2,3)"
                             << "";
    QTest::newRow("too many") << "Offs(p1,1,2,3,4)"
                              << "";
    QTest::newRow("no number") << "Offs(p1,1,x,3)"
                               << "";
    QTest::newRow("open") << "Offs(p1,1,2,3"
                          << "";
    QTest::newRow("nothing") << "Offs()"
                             << "";
}

void tst_ProgramRun::pointsAreRead()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    PointTerm term;
    QCOMPARE(PointTerm::read(text, &term).ok(), !expected.isEmpty());
    if (expected.isEmpty())
        return;
    QStringList parts{QString::number(int(term.kind)), term.name};
    for (const double number : term.numbers)
        parts.append(QString::number(number));
    QCOMPARE(parts.join(' '), expected);
}

void tst_ProgramRun::modes_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<double>("seconds"); // for the 100 mm of the seam
    QTest::addColumn<bool>("welds");
    QTest::newRow("real, at the file's speed") << "real" << 5.0 << true;
    QTest::newRow("simulated, at the same") << "simu" << 5.0 << false;
    QTest::newRow("test run, at its own") << "test_run" << 0.8 << false;
}

void tst_ProgramRun::modes()
{
    QFETCH(QString, mode);
    QFETCH(double, seconds);
    QFETCH(bool, welds);
    ProgramBench bench;
    QCOMPARE(bench
                 .set("arc_weld.running_param", {},
                      QVariantMap{
                          {"test_run_speed", 125}, {"wire_feed_speed", 1}, {"gas_detect_time", 5}})
                 .code,
             int(Ok));
    QCOMPARE(bench.go(seam, mode).code, int(Ok));
    QVERIFY(bench.passUntil([&] { return bench.state("line") == 3; }));
    QVERIFY(isAt(bench, p3, 2));
    const qint64 began = bench.now;
    QVERIFY(
        bench.passUntil([&] { return bench.toldValues("tl_program.state", "line").contains(4); }));
    QVERIFY(qAbs(double(bench.now - began) / 1000 - seconds) < 0.05);
    bench.finish();
    QCOMPARE(bench.state("state"), QVariant("idle"));
    QCOMPARE(bench.state("message"), QVariant("finished"));
    QCOMPARE(bench.toldValues("tl_program.state", "line"), (QVariantList{0, 1, 2, 3, 4, 0}));
    QVERIFY(isAt(bench, p3 + Vector3d(0, 100, 0)));
    bench.pass(1000);
    const QVariantList phases{"pre_flow", "ignition", "welding", "crater", "post_flow", "idle"};
    QCOMPARE(bench.toldValues("arc_weld.welder_state", "phase"), welds ? phases : QVariantList());
    QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - (welds ? 100 : 0)) < 0.2);
    QCOMPARE(bench.weldState("welding_wire_used").toDouble() > 0, welds);
    QVERIFY(!bench.controller.isBusy());
}

void tst_ProgramRun::movesGoWhereTheySay_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("z");
    QTest::newRow("joint") << "MoveJ p3,v200,z5,torch1,wobj0" << 800.0 << -200.0 << 200.0;
    QTest::newRow("linear") << "MoveL p4,v200,z5,torch1" << 800.0 << 200.0 << 200.0;
    QTest::newRow("welding move without an arc")
        << "WMoveL p4,v200,z5,torch1" << 800.0 << 200.0 << 200.0;
    QTest::newRow("circular") << "MoveC p7,p8,v200,z5,torch1" << 700.0 << 100.0 << 200.0;
    QTest::newRow("offset") << "MoveL Offs(p3,-10,20.5,30),v200,z5,torch1" << 790.0 << -179.5
                            << 230.0;
    // The torch at p1 points down: its z is the world's -z, its x the world's -x there.
    QTest::newRow("tool") << "MoveL RelTool(p1,10,0,40),v200,z5,torch1" << 790.0 << -200.0 << 460.0;
    QTest::newRow("tool turned") << "MoveL Reltool(p1,0,20,0,0,0,30),v200,z5,torch1" << 800.0
                                 << -180.0 << 500.0;
    QTest::newRow("in another work object")
        << "MoveL Offs(p3,-600,0,0),v200,z5,torch1,fixture1" << 800.0 << -200.0 << 350.0;
}

void tst_ProgramRun::movesGoWhereTheySay()
{
    QFETCH(QString, line);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, z);
    ProgramBench bench;
    QVERIFY(isAt(bench, p1));
    bench.go({line});
    QVERIFY(bench.finish() > 100);
    QCOMPARE(bench.state("message"), QVariant("finished"));
    QVERIFY(isAt(bench, {x, y, z}));
}

// From p6 over p7 the circle has 100 mm around (700, 0, 200).
void tst_ProgramRun::circle_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("quarters");
    QTest::newRow("half") << "p8" << 700.0 << 100.0 << 2.0;
    QTest::newRow("three quarters") << "Offs(p7,-200,0,0)" << 600.0 << 0.0 << 3.0;
}

void tst_ProgramRun::circle()
{
    QFETCH(QString, end);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, quarters);
    ProgramBench bench;
    bench.go(
        {"MoveL p6,v1000,fine,torch1", QString("WMoveC p7,%1,v50,fine,torch1,wobj0").arg(end)});
    QVERIFY(bench.passUntil([&] { return bench.state("line") == 2; }));
    const qint64 began = bench.now;
    double nearest = 1000;
    while (bench.state("state") == "running") {
        bench.pass(50);
        QVERIFY(qAbs((bench.tip() - Vector3d(700, 0, 200)).norm() - 100) < 0.01);
        nearest = qMin(nearest, (bench.tip() - Vector3d(800, 0, 200)).norm());
    }
    QCOMPARE(bench.state("message"), QVariant("finished"));
    QVERIFY(nearest < 3);
    QVERIFY(isAt(bench, {x, y, 200}));
    QVERIFY(qAbs((bench.now - began) / 1000.0 - quarters * M_PI / 2 * 100 / 50) < 0.1);
}

void tst_ProgramRun::straightCircleIsALine()
{
    ProgramBench bench;
    bench.go({"MoveL p3,v1000,fine,torch1", "WMoveC Offs(p3,0,150,0),p4,v200,fine,torch1"});
    QVERIFY(bench.passUntil([&] { return bench.state("line") == 2; }));
    while (bench.state("state") == "running") {
        bench.pass(50);
        const Vector3d tip = bench.tip();
        QVERIFY(qAbs(tip.x() - 800) < 0.01 && qAbs(tip.z() - 200) < 0.01);
    }
    QVERIFY(isAt(bench, p4));
}

void tst_ProgramRun::weavesWithinItsAmplitude()
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
                  "WMoveL p4,v50,fine,torch1" + weave, "WeaveOff", "WMoveL p3,v50,fine,torch1"});
        QVERIFY(bench.passUntil([&] { return bench.state("line") == 3; }));
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
        QVERIFY2(high - low > 5.7 && high - low < 6.01, qPrintable(QString::number(high - low)));
        QVERIFY(qMax(high, -low) < 4.01 && qMax(high, -low) > 3.8);
        bench.pass(1000);
        QVERIFY(qAbs(bench.tip().x() - 800) < 0.01);
        bench.run("tl_program.stop");
    }
}

void tst_ProgramRun::timedLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QVector<Event>>("events");
    QTest::newRow("feed") << "FeedOnWire 1.5"
                          << "real" << QVector<Event>{Event::WireFeeds, Event::WireStops};
    QTest::newRow("back") << "FeedBackWire 1.5"
                          << "real" << QVector<Event>{Event::WireRetracts, Event::WireStops};
    QTest::newRow("gas") << "DetectGas 1.5"
                         << "real" << QVector<Event>{Event::GasFlows, Event::GasStops};
    QTest::newRow("feed, dry") << "FeedOnWire 1.5"
                               << "simu" << QVector<Event>();
    QTest::newRow("gas, dry") << "DetectGas 1.5"
                              << "test_run" << QVector<Event>();
}

void tst_ProgramRun::timedLines()
{
    QFETCH(QString, line);
    QFETCH(QString, mode);
    QFETCH(QVector<Event>, events);
    ProgramBench bench;
    bench.go({line}, mode);
    const qint64 took = bench.finish();
    QVERIFY(qAbs(took - 1500) <= 20);
    QVector<Event> seen;
    const auto entries = bench.journal.entries();
    for (const Journal::Entry &entry : entries) {
        if (entry.event <= Event::GasStops)
            seen.append(entry.event);
    }
    QCOMPARE(seen, events);
}

void tst_ProgramRun::timedLineThatIsStopped()
{
    ProgramBench bench;
    bench.go({"FeedOnWire 5"});
    bench.pass(1000);
    bench.faults.set(Fault::WireStuck, true);
    bench.pass(50);
    QCOMPARE(bench.state("state"), QVariant("error"));
    bench.faults.clear();
    bench.go({"FeedOnWire 5", "MoveL p3,v1000,fine,torch1"});
    bench.pass(1000);
    QCOMPARE(bench.run("tl_program.pause").code, int(Ok));
    QCOMPARE(bench.events().contains(Event::WireStops), true);
    bench.pass(3000);
    bench.run("tl_program.run");
    bench.pass(3900);
    QCOMPARE(bench.state("line"), QVariant(1));
    bench.pass(200);
    QCOMPARE(bench.state("line"), QVariant(2));
}

void tst_ProgramRun::unknownLinesAreIgnoredAloud()
{
    ProgramBench bench;
    bench.go({"Explode 5", "// a comment", "MoveL p3,v1000,fine,torch1", "Wait"});
    bench.finish();
    QVERIFY(isAt(bench, p3));
    QCOMPARE(bench.state("message"), QVariant("finished, lines ignored: 2"));
    const QVariantList messages = bench.toldValues("tl_program.state", "message");
    QVERIFY(messages.contains("line 1: \"Explode\" is unknown and was ignored"));
    QVERIFY(messages.contains("line 4: \"Wait\" is unknown and was ignored"));
    QCOMPARE(bench.events().count(Event::Message), 2);
}

void tst_ProgramRun::mistakes_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message"); // after "line 2: "
    QTest::newRow("point") << "MoveL p99,v50,fine,torch1"
                           << "there is no point p99";
    QTest::newRow("speed") << "MoveL p3,v51,fine,torch1"
                           << "there is no var v51";
    QTest::newRow("zone for a speed") << "MoveL p3,fine,fine,torch1"
                                      << "fine is no speed";
    QTest::newRow("tool") << "MoveL p3,v50,fine,hammer"
                          << "there is no tool hammer";
    QTest::newRow("work object") << "MoveL p3,v50,fine,torch1,wobj9"
                                 << "there is no wobj wobj9";
    QTest::newRow("call") << "MoveL Off(p3,1),v50,fine,torch1"
                          << "Off(p3,1) is no point";
    QTest::newRow("too short") << "WMoveC p3,p4,v50,fine"
                               << "WMoveC needs a point, speed, zone and tool";
    QTest::newRow("reach") << "MoveL Offs(p3,5000,0,0),v50,fine,torch1"
                           << "the robot does not get to Offs(p3,5000,0,0)";
    QTest::newRow("weave") << "WMoveL p3,v50,fine,torch1,\"weavedata9\""
                           << "there is no file \"weavedata9\"";
    QTest::newRow("weave on") << "WeaveOn"
                              << "WeaveOn needs a weave file";
    QTest::newRow("arc file") << "ArcOn \"arcondata1\",\"arcdata9\""
                              << "there is no file \"arcdata9\"";
    QTest::newRow("no arc file") << "ArcOn \"arcdata1\",\"arcdata1\""
                                 << "there is no file \"arcdata1\"";
    QTest::newRow("one file") << "ArcOn \"arcondata1\""
                              << "ArcOn needs an arc-start file and a welding file";
    QTest::newRow("arc end") << "ArcOff"
                             << "ArcOff needs an arc-end file";
    QTest::newRow("time") << "FeedOnWire 1,5"
                          << "FeedOnWire needs a time in seconds, up to an hour";
    QTest::newRow("endless") << "DetectGas 1e300"
                             << "DetectGas needs a time in seconds, up to an hour";
}

void tst_ProgramRun::mistakes()
{
    QFETCH(QString, line);
    QFETCH(QString, message);
    for (const char *mode : {"real", "test_run"}) {
        ProgramBench bench;
        bench.go({"WeaveOff", line, "MoveL p5,v50,fine,torch1"}, mode);
        bench.finish();
        QCOMPARE(bench.state("message").toString(), "line 2: " + message);
        QCOMPARE(bench.state("state"), QVariant("error"));
        QCOMPARE(bench.state("line"), QVariant(2));
        QCOMPARE(bench.events().last(), Event::Alarm);
        QVERIFY(isAt(bench, p1));
    }
}

void tst_ProgramRun::pauseAndGoOn()
{
    ProgramBench bench;
    bench.go(seam);
    QVERIFY(bench.passUntilPhase("welding"));
    bench.pass(2000);
    QCOMPARE(bench.run("tl_program.pause").code, int(Ok));
    const Vector3d stopped = bench.tip();
    QVERIFY((stopped - p3).norm() > 30);
    QCOMPARE(bench.weldState("current"), QVariant(0.0));
    bench.pass(5000);
    QCOMPARE(bench.state("state"), QVariant("paused"));
    QVERIFY(isAt(bench, stopped));
    QCOMPARE(bench.weldState("phase"), QVariant("idle"));

    QCOMPARE(bench.run("tl_program.run").code, int(Ok));
    QVERIFY(bench.passUntilPhase("ignition"));
    QVERIFY(isAt(bench, stopped));
    bench.finish();
    QCOMPARE(bench.state("message"), QVariant("finished"));
    QVERIFY(isAt(bench, p3 + Vector3d(0, 100, 0)));
    QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - 100) < 0.3);
    QCOMPARE(bench.toldValues("tl_program.state", "state"),
             (QVariantList{"running", "paused", "running", "idle"}));
}

void tst_ProgramRun::stop()
{
    ProgramBench bench;
    bench.go(seam);
    QVERIFY(bench.passUntilPhase("welding"));
    bench.pass(2000);
    QCOMPARE(bench.run("tl_program.stop").code, int(Ok));
    const Vector3d stopped = bench.tip();
    QCOMPARE(bench.weldState("phase"), QVariant("post_flow"));
    bench.pass(3000);
    QVERIFY(isAt(bench, stopped));
    QCOMPARE(bench.state("state"), QVariant("idle"));
    QCOMPARE(bench.state("message"), QVariant("stopped"));
    QCOMPARE(bench.run("tl_program.run").code, int(Ok)); // from the top
    bench.pass(5);
    QCOMPARE(bench.state("line"), QVariant(1));
}

void tst_ProgramRun::commandsInTheWrongState()
{
    ControllerBench fresh;
    QCOMPARE(fresh.run("tl_program.run").code, int(WrongState));
    QCOMPARE(fresh.run("tl_program.pause").code, int(WrongState));
    QCOMPARE(fresh.run("tl_program.stop").code, int(Ok)); // never refused
    QCOMPARE(fresh.run("tl_program.load", QVariantMap{{"name", "x"}}).code, int(BadPayload));
    ProgramBench bench;
    bench.go(seam, "simu");
    const QVariantMap other{{"name", "other"}, {"text", ""}};
    QCOMPARE(bench.run("tl_program.load", other).code, int(WrongState));
    QCOMPARE(bench.run("tl_program.run").code, int(WrongState));
    QCOMPARE(bench.run("tl_program.pause").code, int(Ok));
    QCOMPARE(bench.run("tl_program.load", other).code, int(WrongState));
    QCOMPARE(bench.run("tl_program.pause").code, int(WrongState));
    QCOMPARE(bench.run("tl_program.stop").code, int(Ok));
    QCOMPARE(bench.run("tl_program.load", other).code, int(Ok));
    QCOMPARE(bench.state("name"), QVariant("other"));
    QCOMPARE(bench.run("tl_program.run").code, int(Ok));
    bench.pass(20);
    QCOMPARE(bench.state("message"), QVariant("finished")); // an empty one
}

void tst_ProgramRun::robotIsTheProgramsAlone()
{
    ProgramBench bench;
    QVariantMap away = ProgramBench::toStart();
    away["coordinate"] =
        QVariantMap{{"user_frame", "default"}, {"wobj", QVariantMap{{"name", "fixture1"}}}};
    bench.go({"MoveL p3,v50,fine,torch1"}, "simu");
    bench.pass(100);
    QCOMPARE(bench.run("motion.move.to_point", away).code, int(WrongState));
    QCOMPARE(bench.run("motion.move.stop").code, int(Ok));
    bench.pass(100);
    QCOMPARE(bench.state("state"), QVariant("paused"));
    QCOMPARE(bench.run("motion.move.to_point", away).code, int(WrongState));
    QCOMPARE(bench.run("tl_program.run").code, int(Ok));
    bench.finish();
    QVERIFY(isAt(bench, p3));
    QCOMPARE(bench.run("motion.move.to_point", ProgramBench::toStart()).code, int(Ok));
    QCOMPARE(bench.run("tl_program.run").code, int(WrongState));
}

void tst_ProgramRun::weldFaults_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<QString>("phase"); // in which it comes
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("message");
    const QString alarm = "stop_and_alarm";
    QTest::newRow("no arc") << int(Fault::NoArc) << "pre_flow" << alarm
                            << "line 2: the arc does not strike";
    QTest::newRow("no gas at first")
        << int(Fault::NoGas) << "pre_flow" << alarm << "line 2: there is no gas";
    QTest::newRow("no gas later") << int(Fault::NoGas) << "welding" << alarm
                                  << "line 3: there is no gas";
    QTest::newRow("arc breaks") << int(Fault::ArcBreaks) << "welding" << alarm
                                << "line 3: the arc broke";
    QTest::newRow("wire stuck") << int(Fault::WireStuck) << "welding" << alarm
                                << "line 3: the arc broke";
    QTest::newRow("arc breaks, run on") << int(Fault::ArcBreaks) << "welding"
                                        << "continue_running"
                                        << "finished";
    QTest::newRow("arc breaks, cannot be struck") << int(Fault::ArcBreaks) << "welding"
                                                  << "auto_arc_reignition"
                                                  << "line 3: the arc does not strike";
    QTest::newRow("wire sticks") << int(Fault::WireSticks) << "welding" << alarm
                                 << "line 4: the wire sticks";
    QTest::newRow("welder error") << int(Fault::WelderError) << "welding" << alarm
                                  << "line 3: the welder reports an error";
    QTest::newRow("welder error at first")
        << int(Fault::WelderError) << "idle" << alarm << "line 2: the welder reports an error";
}

void tst_ProgramRun::weldFaults()
{
    QFETCH(int, fault);
    QFETCH(QString, phase);
    QFETCH(QString, option);
    QFETCH(QString, message);
    ProgramBench bench;
    bench.save("weld_param", ProgramBench::weld(option.toLatin1()));
    bench.go(seam);
    QVERIFY(bench.passUntilPhase(phase));
    bench.faults.set(Fault(fault), true);
    bench.finish();
    QCOMPARE(bench.state("message").toString(), message);
    const bool finished = message == "finished";
    QCOMPARE(bench.state("state"), QVariant(finished ? "idle" : "error"));
    QCOMPARE(bench.events().contains(Event::Alarm), !finished);
    bench.pass(2000);
    QCOMPARE(bench.weldState("phase"), QVariant("idle"));
    QCOMPARE(bench.weldState("current"), QVariant(0.0));
}

void tst_ProgramRun::reignitesWhereItBroke()
{
    ProgramBench bench;
    bench.save("weld_param", ProgramBench::weld("auto_arc_reignition"));
    bench.go(seam);
    QVERIFY(bench.passUntilPhase("welding"));
    bench.pass(2000);
    const Vector3d broken = bench.tip();
    bench.faults.set(Fault::ArcBreaks, true);
    QVERIFY(bench.passUntilPhase("ignition"));
    const Vector3d stopped = bench.tip(); // 100 ms at 20 mm/s later
    QVERIFY(qAbs((stopped - broken).norm() - 2) < 0.5);
    bench.faults.clear();
    QVERIFY(bench.passUntilPhase("welding"));
    QVERIFY(isAt(bench, stopped - Vector3d(0, 10, 0), 1));
    bench.finish();
    QVERIFY(isAt(bench, p3 + Vector3d(0, 100, 0)));
    QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - (100 + 10 - 2)) < 1);
}

void tst_ProgramRun::stuckWireHasToBeFreed()
{
    ProgramBench bench;
    bench.faults.set(Fault::WireSticks, true);
    bench.go(seam);
    bench.finish();
    QCOMPARE(bench.state("message"), QVariant("line 4: the wire sticks"));
    bench.go(seam);
    bench.finish();
    QCOMPARE(bench.state("message"), QVariant("line 2: the wire sticks"));
    bench.faults.clear();
    bench.go(seam);
    bench.finish();
    QCOMPARE(bench.state("message"), QVariant("finished"));
}

void tst_ProgramRun::savingActsOnTheRunningWeld()
{
    ProgramBench bench;
    bench.go(seam);
    QVERIFY(bench.passUntilPhase("welding"));
    bench.pass(500);
    const auto isNear = [&](const char *key, double value) {
        return qAbs(bench.weldState(key).toDouble() - value) < 0.02 * value;
    };
    QVERIFY(isNear("current", 200) && isNear("voltage", 24) && isNear("welding_speed", 20));
    const QVariantMap other = with(ProgramBench::weld(), "name", "arcdata2");
    bench.save("weld_param", with(other, "current", 90.0));
    bench.pass(300);
    QVERIFY(isNear("current", 200));
    QVariantMap file = with(ProgramBench::weld(), "current", 170.0);
    bench.save("weld_param", with(file, "weld_speed", 10));
    bench.pass(300);
    QVERIFY(isNear("current", 170) && isNear("voltage", 24) && isNear("welding_speed", 10));
    QCOMPARE(bench.run("arc_weld.enable_weld_param", with(file, "voltage", 21.0)).code, int(Ok));
    bench.pass(300);
    QVERIFY(isNear("current", 170) && isNear("voltage", 21));
    bench.run("arc_weld.remove.weld_param", QStringList{"arcdata1"});
    bench.pass(300);
    QVERIFY(isNear("current", 170));
}

void tst_ProgramRun::nameFollowsThePhase()
{
    ProgramBench bench;
    bench.go(seam);
    bench.finish();
    bench.pass(1000);
    QCOMPARE(bench.toldValues("arc_weld.welder_state", "welding_name"),
             (QVariantList{"arcondata1", "arcdata1", "arcoffdata1", "arcdata1"}));
}

void tst_ProgramRun::valuesComeAtTheRate_data()
{
    QTest::addColumn<int>("rate");
    for (const int rate : {10, 50, 100, 500})
        QTest::newRow(qPrintable(QString::number(rate))) << rate;
}

void tst_ProgramRun::valuesComeAtTheRate()
{
    QFETCH(int, rate);
    ProgramBench bench;
    bench.set("arc_weld.welder_state_rate", {}, QVariantMap{{"rate", rate}});
    bench.go(seam);
    QVERIFY(bench.passUntilPhase("welding"));
    bench.told.clear();
    bench.pass(2000);
    int count = 0;
    for (const ControllerBench::Told &entry : qAsConst(bench.told)) {
        const QVariantMap values = entry.values.toMap();
        count += entry.path == "arc_weld.welder_state";
        QCOMPARE(values.contains("current"), values.contains("voltage"));
    }
    QVERIFY2(count > 2 * rate * 0.95 && count <= 2 * rate, qPrintable(QString::number(count)));
    bench.faults.set(Fault::WelderError, true); // it ends at once
    bench.pass(2000);
    const auto lastTold = [&](const char *key) {
        return bench.toldValues("arc_weld.welder_state", key).last();
    };
    QCOMPARE(lastTold("current"), QVariant(0.0));
    QCOMPARE(lastTold("welding_distance"), bench.weldState("welding_distance"));
    bench.told.clear();
    bench.pass(2000);
    QVERIFY(bench.told.isEmpty());
}

void tst_ProgramRun::ratesOutOfRange()
{
    ControllerBench bench;
    constexpr char node[] = "arc_weld.welder_state_rate";
    QCOMPARE(bench.get(node, "rate").value, QVariant(50));
    QCOMPARE(bench.set(node, {}, QVariantMap{{"rate", 9}}).code, int(OutOfRange));
    QCOMPARE(bench.set(node, {}, QVariantMap{{"rate", 501}}).code, int(OutOfRange));
    QCOMPARE(bench.set(node, {}, QVariantMap{{"rate", "50"}}).code, int(BadPayload));
    QCOMPARE(bench.get(node, "rate").value, QVariant(50));
}

void tst_ProgramRun::journalCanBeRead()
{
    ProgramBench bench;
    bench.go(seam);
    bench.finish();
    const QVariantList entries = bench.get("cell.journal", "entries").value.toList();
    QStringList words;
    for (const QVariant &entry : entries)
        words.append(entry.toMap()["event"].toString() + ' ' + entry.toMap()["cause"].toString());
    QCOMPARE(words,
             (QStringList{"program running", "weld pre_flow", "weld ignition", "weld welding",
                          "weld crater", "weld post_flow", "program idle"}));
    QCOMPARE(entries.last().toMap()["time"].toLongLong(), bench.journal.entries().last().time);
    for (int i = 0; i < 1000; ++i)
        bench.journal.add(i, Event::Message, QString::number(i));
    const QVariantList newest = bench.get("cell.journal", "entries").value.toList();
    QCOMPARE(newest.size(), 200);
    QCOMPARE(newest.last().toMap()["cause"], QVariant("999"));
    QCOMPARE(bench.set("cell.journal", {}, QVariantMap{}).code, int(ReadOnly));
}

QTEST_GUILESS_MAIN(tst_ProgramRun)
#include "tst_programrun.moc"
