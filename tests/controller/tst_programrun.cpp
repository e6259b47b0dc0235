#include <QtTest>

#include "programbench.h"
#include "support/rows.h"

using namespace welmo::controller;
using Eigen::Vector3d;
using Event = Journal::Event;
using testsupport::Rows;

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
            {"simulated, at the same", "simu", 5.0, true},
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
            QCOMPARE(bench.state("message"), QVariant("finished"));
            QCOMPARE(bench.toldValues("tl_program.state", "line"),
                     (QVariantList{0, 1, 2, 3, 4, 0}));
            QVERIFY(bench.isAt(p3 + Vector3d(0, 100, 0)));
            bench.pass(1000);
            QCOMPARE(bench.toldValues("arc_weld.welder_state", "phase"),
                     welds ? phases : QVariantList());
            QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - (welds ? 100 : 0)) < 0.2);
            QCOMPARE(bench.weldState("welding_wire_used").toDouble() > 0, welds);
            QCOMPARE(bench.weldState("line").toInt(), 2);
            QCOMPARE(bench.weldState("user").toString(), QString("anna"));
            QVERIFY(!bench.controller.isBusy());
        }
    }
    void timedLines()
    {
        const Rows<QString, QString, QVector<Event>> rows{
            {"feed", "FeedOnWire 1.5", "real", {Event::WireFeeds, Event::WireStops}},
            {"back", "FeedBackWire 1.5", "real", {Event::WireRetracts, Event::WireStops}},
            {"gas", "DetectGas 1.5", "real", {Event::GasFlows, Event::GasStops}},
            {"feed, dry", "FeedOnWire 1.5", "simu", {}},
        };
        for (const auto &[name, line, mode, events] : rows) {
            ProgramBench bench;
            bench.go({line}, mode);
            QVERIFY(qAbs(bench.finish() - 1500) <= 20);
            QVector<Event> seen = bench.events();
            seen.removeAll(Event::Program);
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
            {"call", "MoveL Off(p3,1),v50,fine,torch1",
             "point format error: Off(p3,1) is read as p3"},
            {"too short", "WMoveC p3,p4,v50,fine",
             "wmovec tl command format error: the line reads WMoveC AuxPoint, ToPoint, Speed, "
             "Zone, Tool, [Wobj], [\"weavedata\"]"},
            {"reach", "MoveL Offs(p3,5000,0,0),v50,fine,torch1",
             "the robot does not get to Offs(p3,5000,0,0)"},
            {"weave", "WMoveL p3,v50,fine,torch1,wobj0,\"weavedata9\"",
             "there is no file \"weavedata9\""},
            {"time", "FeedOnWire 1,5", "feedonwire time format error: 1,5 is no time in seconds"},
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
    void pauseGoOnAndStop()
    {
        ProgramBench bench;
        QVERIFY(bench.goWelding(2000));
        QVERIFY(bench.run("tl_program.pause").ok());
        const Vector3d stopped = bench.tip();
        QVERIFY((stopped - p3).norm() > 30);
        QCOMPARE(bench.weldState("current"), QVariant(0.0));
        bench.pass(5000);
        QVERIFY(bench.isAt(stopped));
        QCOMPARE(bench.weldState("phase"), QVariant("idle"));

        QVERIFY(bench.run("tl_program.run").ok());
        QVERIFY(bench.passUntilPhase("ignition"));
        QVERIFY(bench.isAt(stopped));
        bench.finish();
        QVERIFY(bench.isAt(p3 + Vector3d(0, 100, 0)));
        QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - 100) < 0.3);
        QCOMPARE(bench.toldValues("tl_program.state", "state"),
                 (QVariantList{"running", "paused", "running", "idle"}));

        QVERIFY(bench.goWelding(2000)); // from the top
        QVERIFY(bench.run("tl_program.stop").ok());
        QCOMPARE(bench.weldState("phase"), QVariant("post_flow"));
        const Vector3d end = bench.tip();
        bench.pass(3000);
        QVERIFY(bench.isAt(end));
        QCOMPARE(bench.state("state"), QVariant("idle"));
        QCOMPARE(bench.state("message"), QVariant("stopped"));
    }
    // A new controller can weld; one that somebody has files on is left as it is.
    void exampleFiles()
    {
        const auto filled = [](Store &store) {
            static Faults faults;
            static Journal journal;
            Controller controller(store, faults, journal, [] { return 0; });
            controller.fillWithExample();
            controller.start();
            const auto get = [&](const char *path, const char *key) {
                return controller.handle({Request::Kind::Get, path, key, {}}).value;
            };
            int files = 0;
            for (const char *set : {"arcon", "arcdata", "arcoff"}) {
                for (int number = 1; number <= 3; ++number) {
                    const QByteArray prefix(set == QByteArray("arcdata") ? "weld" : set);
                    const QByteArray name = set + QByteArray(prefix == "weld" ? "" : "data");
                    const QVariant file =
                        get("arc_weld." + prefix + "_param", name + QByteArray::number(number));
                    files += childAt(file, "current").toDouble() > 0 ? 1 : 0;
                }
            }
            return files * 10 + get("arc_weld.welder_setting", "enable").toInt()
                + get("arc_weld.welder_setting", "connect_to_welder").toInt();
        };
        QCOMPARE(filled(*Store::inMemory()), 92);
        const auto used = Store::inMemory();
        QVERIFY(
            used->write({{"arc_weld.weld_param", "arcdata7", QVariantMap{{"name", "arcdata7"}}}}));
        QCOMPARE(filled(*used), 0);
    }
    void theEndIsASum()
    {
        ProgramBench bench;
        QVERIFY(bench.go(QStringList{"Wait 1"} + seam + QStringList{"Wait 2", "Wait 3"}).ok());
        QVERIFY(bench.passUntilPhase("welding"));
        bench.pass(2000);
        bench.faults.set(Faults::Fault::ArcBreaks, true);
        bench.finish();
        const QVariantMap sum = bench.state("result").toMap();
        QCOMPARE(sum["end"], QVariant("finished"));
        const QVariantList faults = sum["faults"].toList();
        QCOMPARE(faults.size(), 1);
        QCOMPARE(childAt(faults[0], "line"), QVariant(4));
        const double lostAt = childAt(faults[0], "arguments").toList()[0].toDouble();
        QVERIFY(lostAt > 35 && lostAt < 45);
        QCOMPARE(sum["welded"].toDouble(), lostAt);
        QCOMPARE(sum["length"].toDouble(), 100.0);
        QCOMPARE(sum["seams"].toInt() * 10 + sum["seams_of"].toInt(), 11);
        QCOMPARE(sum["ignored"], QVariant(3));
        const auto alarms = [&bench] { return bench.get("cell.alarms", "entries").value.toList(); };
        QCOMPARE(alarms().size(), 2); // one for all ignored lines

        Controller again(*bench.store, bench.faults, bench.journal, [&bench] { return bench.now; });
        QVERIFY(again.start().ok());
        const auto kept = [&again] {
            return again.handle({Request::Kind::Get, "cell.alarms", "entries", {}}).value.toList();
        };
        QCOMPARE(kept(), alarms());
        const QVariantMap first{{"id", childAt(kept()[0], "id")}};
        again.handle({Request::Kind::Command, "cell.alarms.acknowledge", {}, first});
        QCOMPARE(childAt(kept()[0], "open"), QVariant(false));
        QCOMPARE(childAt(kept()[1], "open"), QVariant(true));
    }
    void whatAWeldNeeds()
    {
        const QString noCurrent = "current";
        const Rows<std::function<void(ProgramBench &)>, QString> rows{
            {"power",
             [](auto &b) {
                 b.run("cell.switch", QVariantMap{{"power", false}});
             },
             "no_power"},
            {"cell",
             [](auto &b) {
                 b.run("cell.switch", QVariantMap{{"fault", true}});
             },
             "cell_fault"},
            {"the pendant",
             [](auto &b) {
                 b.controller.beat(b.now, {});
                 b.pass(1100);
             },
             "pendant_lost"},
            {"current",
             [&](auto &b) { b.save("weld_param", with(ProgramBench::weld(), noCurrent, 0.0)); },
             "no_current"},
        };
        for (const auto &[name, lose, code] : rows) {
            ProgramBench bench;
            QVERIFY(bench.goWelding(1000));
            lose(bench);
            bench.pass(100);
            QVERIFY(bench.state("state") != "running");
            QCOMPARE(bench.weldState("current"), QVariant(0.0));
            const QVariantList alarms = bench.get("cell.alarms", "entries").value.toList();
            QCOMPARE(childAt(alarms.last(), "code").toString(), code);
            if (code == "no_power" || code == "cell_fault") {
                const Reply refused = bench.run("tl_program.run");
                QCOMPARE(refused.code, int(WrongState));
                QCOMPARE(childAt(refused.value, "reason").toString(), code);
            }
        }
        ProgramBench unconnected;
        unconnected.run(
            "arc_weld.set_welder",
            with(ProgramBench::welder("RL/RPL", 350, true), "connect_to_welder", false));
        QCOMPARE(unconnected.endOf(seam), QString("line 2: no actual welder is connected"));
    }
    void commandsInTheWrongState()
    {
        ProgramBench bench;
        const auto refused = [&bench](const char *command, const QVariant &payload = {}) {
            return bench.run(command, payload).code == WrongState;
        };
        QVERIFY(refused("tl_program.run") && refused("tl_program.pause"));
        QVERIFY(bench.run("tl_program.stop").ok()); // never refused
        QCOMPARE(bench.run("tl_program.load", QVariantMap{{"name", "x"}}).code, int(BadPayload));
        const QVariantMap other{{"name", "other"}, {"text", ""}};
        const QVariantMap away = ProgramBench::target(p1);
        bench.go({"MoveL p3,v50,fine,torch1"}, "simu");
        bench.pass(100);
        QVERIFY(refused("tl_program.run"));
        for (const bool paused : {false, true}) {
            QCOMPARE(bench.state("state"), QVariant(paused ? "paused" : "running"));
            QVERIFY(refused("tl_program.load", other) && refused("motion.move.to_point", away));
            if (!paused)
                QVERIFY(bench.run("motion.move.stop").ok()); // pauses the program
            bench.pass(100);
        }
        QVERIFY(refused("tl_program.pause"));
        QVERIFY(bench.run("tl_program.run").ok());
        bench.finish();
        QVERIFY(bench.isAt(p3));
        QVERIFY(bench.run("motion.move.to_point", away).ok());
        QVERIFY(refused("tl_program.run")); // the robot is under way
        QVERIFY(bench.run("tl_program.load", other).ok());
        QCOMPARE(bench.state("name"), QVariant("other"));
    }
};

QTEST_GUILESS_MAIN(tst_ProgramRun)
#include "tst_programrun.moc"
