#include <QtTest>

#include "programbench.h"
#include "support/rows.h"

using namespace controller;
using Eigen::Vector3d;
using Fault = Faults::Fault;
using Event = Journal::Event;
using testsupport::Rows;

namespace {

const QStringList seam{"MoveL p3,v1000,fine,torch1,wobj0", "ArcOn \"arcondata1\",\"arcdata1\"",
                       "WMoveL Offs(p3,0,100,0),v50,fine,torch1", "ArcOff \"arcoffdata1\""};

} // namespace

/// A program goes where its lines say, welds what they say, and ends with a reason.
class tst_ProgramRun : public QObject
{
    Q_OBJECT
private slots:
    void modes()
    {
        const QVariantMap running{
            {"test_run_speed", 125}, {"wire_feed_speed", 1}, {"gas_detect_time", 5}};
        const QVariantList phases{"pre_flow", "ignition", "welding", "crater", "post_flow", "idle"};
        const Rows<QString, double, bool> rows{
            // seconds for the 100 mm of the seam; whether it welds
            {"real, at the file's speed", "real", 5.0, true},
            {"simulated, at the same", "simu", 5.0, false},
            {"test run, at its own", "test_run", 0.8, false},
        };
        for (const auto &[name, mode, seconds, welds] : rows) {
            ProgramBench bench;
            QVERIFY(bench.set("arc_weld.running_param", {}, running).ok());
            QVERIFY(bench.go(seam, mode).ok());
            QVERIFY(bench.passUntilLine(3));
            QVERIFY(bench.isAt(p3, 2));
            const qint64 began = bench.now;
            QVERIFY(bench.passUntil(
                [&] { return bench.toldValues("tl_program.state", "line").contains(4); }));
            QVERIFY(qAbs(double(bench.now - began) / 1000 - seconds) < 0.05);
            bench.finish();
            QCOMPARE(bench.state("state"), QVariant("idle"));
            QCOMPARE(bench.state("message"), QVariant("finished"));
            QCOMPARE(bench.toldValues("tl_program.state", "line"),
                     (QVariantList{0, 1, 2, 3, 4, 0}));
            QVERIFY(bench.isAt(p3 + Vector3d(0, 100, 0)));
            bench.pass(1000);
            QCOMPARE(bench.toldValues("arc_weld.welder_state", "phase"),
                     welds ? phases : QVariantList());
            QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - (welds ? 100 : 0)) < 0.2);
            QCOMPARE(bench.weldState("welding_wire_used").toDouble() > 0, welds);
            QVERIFY(!bench.controller.isBusy());
        }
    }
    void timedLines()
    {
        const Rows<QString, QString, QVector<Event>> rows{
            {"feed", "FeedOnWire 1.5", "real", QVector<Event>{Event::WireFeeds, Event::WireStops}},
            {"back", "FeedBackWire 1.5", "real",
             QVector<Event>{Event::WireRetracts, Event::WireStops}},
            {"gas", "DetectGas 1.5", "real", QVector<Event>{Event::GasFlows, Event::GasStops}},
            {"feed, dry", "FeedOnWire 1.5", "simu", QVector<Event>()},
            {"gas, dry", "DetectGas 1.5", "test_run", QVector<Event>()},
        };
        for (const auto &[name, line, mode, events] : rows) {
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
    }
    void unknownLinesAreIgnoredAloud()
    {
        ProgramBench bench;
        QCOMPARE(bench.endOf({"Explode 5", "// a comment", "MoveL p3,v1000,fine,torch1", "Wait"}),
                 QString("finished, lines ignored: 2"));
        QVERIFY(bench.isAt(p3));
        const QVariantList messages = bench.toldValues("tl_program.state", "message");
        QVERIFY(messages.contains("line 1: \"Explode\" is unknown and was ignored"));
        QVERIFY(messages.contains("line 4: \"Wait\" is unknown and was ignored"));
        QCOMPARE(bench.events().count(Event::Message), 2);
    }
    void mistakes()
    {
        const Rows<QString, QString> rows{
            // after "line 2: "
            {"point", "MoveL p99,v50,fine,torch1", "there is no point p99"},
            {"speed", "MoveL p3,v51,fine,torch1", "there is no var v51"},
            {"zone for a speed", "MoveL p3,fine,fine,torch1", "fine is no speed"},
            {"tool", "MoveL p3,v50,fine,hammer", "there is no tool hammer"},
            {"work object", "MoveL p3,v50,fine,torch1,wobj9", "there is no wobj wobj9"},
            {"call", "MoveL Off(p3,1),v50,fine,torch1", "Off(p3,1) is no point"},
            {"too short", "WMoveC p3,p4,v50,fine", "WMoveC needs a point, speed, zone and tool"},
            {"reach", "MoveL Offs(p3,5000,0,0),v50,fine,torch1",
             "the robot does not get to Offs(p3,5000,0,0)"},
            {"weave", "WMoveL p3,v50,fine,torch1,\"weavedata9\"",
             "there is no file \"weavedata9\""},
            {"weave on", "WeaveOn", "WeaveOn needs a weave file"},
            {"arc file", "ArcOn \"arcondata1\",\"arcdata9\"", "there is no file \"arcdata9\""},
            {"no arc file", "ArcOn \"arcdata1\",\"arcdata1\"", "there is no file \"arcdata1\""},
            {"one file", "ArcOn \"arcondata1\"",
             "ArcOn needs an arc-start file and a welding file"},
            {"arc end", "ArcOff", "ArcOff needs an arc-end file"},
            {"time", "FeedOnWire 1,5", "FeedOnWire needs a time in seconds, up to an hour"},
            {"endless", "DetectGas 1e300", "DetectGas needs a time in seconds, up to an hour"},
        };
        for (const auto &[name, line, message] : rows) {
            for (const char *mode : {"real", "test_run"}) {
                ProgramBench bench;
                QCOMPARE(bench.endOf({"WeaveOff", line, "MoveL p5,v50,fine,torch1"}, mode),
                         "line 2: " + message);
                QCOMPARE(bench.state("state"), QVariant("error"));
                QCOMPARE(bench.state("line"), QVariant(2));
                QCOMPARE(bench.events().last(), Event::Alarm);
                QVERIFY(bench.isAt(p1));
            }
        }
    }
    void pauseAndGoOn()
    {
        ProgramBench bench;
        QVERIFY(bench.goWelding(seam, 2000));
        QVERIFY(bench.run("tl_program.pause").ok());
        const Vector3d stopped = bench.tip();
        QVERIFY((stopped - p3).norm() > 30);
        QCOMPARE(bench.weldState("current"), QVariant(0.0));
        bench.pass(5000);
        QCOMPARE(bench.state("state"), QVariant("paused"));
        QVERIFY(bench.isAt(stopped));
        QCOMPARE(bench.weldState("phase"), QVariant("idle"));

        QVERIFY(bench.run("tl_program.run").ok());
        QVERIFY(bench.passUntilPhase("ignition"));
        QVERIFY(bench.isAt(stopped));
        bench.finish();
        QCOMPARE(bench.state("message"), QVariant("finished"));
        QVERIFY(bench.isAt(p3 + Vector3d(0, 100, 0)));
        QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - 100) < 0.3);
        QCOMPARE(bench.toldValues("tl_program.state", "state"),
                 (QVariantList{"running", "paused", "running", "idle"}));
    }
    void stop()
    {
        ProgramBench bench;
        QVERIFY(bench.goWelding(seam, 2000));
        QVERIFY(bench.run("tl_program.stop").ok());
        const Vector3d stopped = bench.tip();
        QCOMPARE(bench.weldState("phase"), QVariant("post_flow"));
        bench.pass(3000);
        QVERIFY(bench.isAt(stopped));
        QCOMPARE(bench.state("state"), QVariant("idle"));
        QCOMPARE(bench.state("message"), QVariant("stopped"));
        QVERIFY(bench.run("tl_program.run").ok()); // from the top
        bench.pass(5);
        QCOMPARE(bench.state("line"), QVariant(1));
    }
    void commandsInTheWrongState()
    {
        ControllerBench fresh;
        QCOMPARE(fresh.run("tl_program.run").code, int(WrongState));
        QCOMPARE(fresh.run("tl_program.pause").code, int(WrongState));
        QVERIFY(fresh.run("tl_program.stop").ok()); // never refused
        QCOMPARE(fresh.run("tl_program.load", QVariantMap{{"name", "x"}}).code, int(BadPayload));
        ProgramBench bench;
        const QVariantMap other{{"name", "other"}, {"text", ""}};
        const QVariantMap away = ProgramBench::toStart();
        bench.go({"MoveL p3,v50,fine,torch1"}, "simu");
        bench.pass(100);
        QCOMPARE(bench.run("tl_program.run").code, int(WrongState));
        for (const bool paused : {false, true}) {
            QCOMPARE(bench.state("state"), QVariant(paused ? "paused" : "running"));
            QCOMPARE(bench.run("tl_program.load", other).code, int(WrongState));
            QCOMPARE(bench.run("motion.move.to_point", away).code, int(WrongState));
            if (!paused)
                QVERIFY(bench.run("motion.move.stop").ok()); // pauses the program
            bench.pass(100);
        }
        QCOMPARE(bench.run("tl_program.pause").code, int(WrongState));
        QVERIFY(bench.run("tl_program.run").ok());
        bench.finish();
        QVERIFY(bench.isAt(p3));
        QVERIFY(bench.run("motion.move.to_point", away).ok());
        QCOMPARE(bench.run("tl_program.run").code, int(WrongState)); // the robot is under way
        QVERIFY(bench.run("tl_program.load", other).ok());
        QCOMPARE(bench.state("name"), QVariant("other"));
    }
    void weldFaults()
    {
        const QString alarm = "stop_and_alarm";
        const Rows<Fault, QString, QString, QString> rows{
            // the phase in which it comes
            {"no arc", Fault::NoArc, "pre_flow", alarm, "line 2: the arc does not strike"},
            {"no gas", Fault::NoGas, "welding", alarm, "line 3: there is no gas"},
            {"arc breaks", Fault::ArcBreaks, "welding", alarm, "line 3: the arc broke"},
            {"wire stuck", Fault::WireStuck, "welding", alarm, "line 3: the arc broke"},
            {"run on", Fault::ArcBreaks, "welding", "continue_running", "finished"},
            {"cannot be struck again", Fault::ArcBreaks, "welding", "auto_arc_reignition",
             "line 3: the arc does not strike"},
            {"welder error", Fault::WelderError, "welding", alarm,
             "line 3: the welder reports an error"},
            {"welder error at first", Fault::WelderError, "idle", alarm,
             "line 2: the welder reports an error"},
        };
        for (const auto &[name, fault, phase, option, message] : rows) {
            ProgramBench bench;
            bench.save("weld_param", ProgramBench::weld(option.toLatin1()));
            bench.go(seam);
            QVERIFY(bench.passUntilPhase(phase));
            bench.faults.set(fault, true);
            bench.finish();
            QCOMPARE(bench.state("message").toString(), message);
            const bool finished = message == "finished";
            QCOMPARE(bench.state("state"), QVariant(finished ? "idle" : "error"));
            QCOMPARE(bench.events().contains(Event::Alarm), !finished);
            bench.pass(2000);
            QCOMPARE(bench.weldState("phase"), QVariant("idle"));
            QCOMPARE(bench.weldState("current"), QVariant(0.0));
        }
    }
    void reignitesWhereItBroke()
    {
        ProgramBench bench;
        bench.save("weld_param", ProgramBench::weld("auto_arc_reignition"));
        QVERIFY(bench.goWelding(seam, 2000));
        const Vector3d broken = bench.tip();
        bench.faults.set(Fault::ArcBreaks, true);
        QVERIFY(bench.passUntilPhase("ignition"));
        const Vector3d stopped = bench.tip(); // 100 ms at 20 mm/s later
        QVERIFY(qAbs((stopped - broken).norm() - 2) < 0.5);
        bench.faults.clear();
        QVERIFY(bench.passUntilPhase("welding"));
        QVERIFY(bench.isAt(stopped - Vector3d(0, 10, 0), 1));
        bench.finish();
        QVERIFY(bench.isAt(p3 + Vector3d(0, 100, 0)));
        QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - (100 + 10 - 2)) < 1);
    }
    void stuckWireHasToBeFreed()
    {
        ProgramBench bench;
        bench.faults.set(Fault::WireSticks, true);
        QCOMPARE(bench.endOf(seam), QString("line 4: the wire sticks"));
        QCOMPARE(bench.endOf(seam), QString("line 2: the wire sticks"));
        bench.faults.clear();
        QCOMPARE(bench.endOf(seam), QString("finished"));
    }
    void savingActsOnTheRunningWeld()
    {
        ProgramBench bench;
        QVERIFY(bench.goWelding(seam, 500));
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
        QVERIFY(bench.run("arc_weld.enable_weld_param", with(file, "voltage", 21.0)).ok());
        bench.pass(300);
        QVERIFY(isNear("current", 170) && isNear("voltage", 21));
        bench.run("arc_weld.remove.weld_param", QStringList{"arcdata1"});
        bench.pass(300);
        QVERIFY(isNear("current", 170));
    }
    void valuesComeAtTheRate()
    {
        for (const int rate : {10, 500})
            checkRate(rate);
    }
    void aWeldIsToldAndNotedDown()
    {
        ProgramBench bench;
        bench.endOf(seam);
        QStringList words;
        const QVariantList entries = bench.get("cell.journal", "entries").value.toList();
        for (const QVariant &entry : entries)
            words.append(entry.toMap()["event"].toString() + ' '
                         + entry.toMap()["cause"].toString());
        QCOMPARE(words,
                 (QStringList{"program running", "weld pre_flow", "weld ignition", "weld welding",
                              "weld crater", "weld post_flow", "program idle"}));
        QCOMPARE(entries.last().toMap()["time"].toLongLong(), bench.journal.entries().last().time);
        bench.pass(1000);
        QCOMPARE(bench.toldValues("arc_weld.welder_state", "welding_name"),
                 (QVariantList{"arcondata1", "arcdata1", "arcoffdata1", "arcdata1"}));
        for (int i = 0; i < 1000; ++i)
            bench.journal.add(i, Event::Message, QString::number(i));
        const QVariantList newest = bench.get("cell.journal", "entries").value.toList();
        QCOMPARE(newest.size(), 200);
        QCOMPARE(newest.last().toMap()["cause"], QVariant("999"));
    }

private:
    static void checkRate(int rate)
    {
        ProgramBench bench;
        bench.set("arc_weld.welder_state_rate", {}, QVariantMap{{"rate", rate}});
        QVERIFY(bench.goWelding(seam, 0));
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
};

QTEST_GUILESS_MAIN(tst_ProgramRun)
#include "tst_programrun.moc"
