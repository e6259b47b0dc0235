#include <QtTest>

#include "programfixture.h"
#include "support/datarows.h"

using namespace welmo::controller;
using namespace testsupport;

/// Running a program: it moves and welds as its lines say, and ends with a message.
class tst_ProgramRun : public QObject
{
    Q_OBJECT
private slots:
    void modes_data()
    {
        addRows<double, bool>({
            // seconds for the 100 mm of the seam; true if it welds
            {"real", 5.0, true}, // at the speed of the file
            {"simu", 5.0, true},
            {"test_run", 0.8, false}, // at the speed of test runs
        });
    }
    void modes()
    {
        const auto &[mode, seconds, welds] = currentRow<double, bool>();
        const QVariantMap running{
            {"test_run_speed", 125}, {"wire_feed_speed", 1}, {"gas_detect_time", 5}};
        const QVariantList phases{"pre_flow", "ignition", "welding", "crater", "post_flow", "idle"};
        ProgramFixture fixture;
        QVERIFY(fixture.set("arc_weld.running_param", {}, running).ok());
        QVERIFY(fixture.go(seam, mode).ok());
        QVERIFY(fixture.passUntilLine(3));
        QVERIFY(fixture.isAt(p3, 2));
        const qint64 began = fixture.now;
        QVERIFY(fixture.passUntil(
            [&] { return fixture.toldValues("tl_program.state", "line").contains(4); }));
        QVERIFY(qAbs(double(fixture.now - began) / 1000 - seconds) < 0.05);
        fixture.finish();
        QCOMPARE(fixture.state("message"), QVariant("finished"));
        QCOMPARE(fixture.toldValues("tl_program.state", "line"), (QVariantList{0, 1, 2, 3, 4, 0}));
        QVERIFY(fixture.isAt(p3 + Vector3d(0, 100, 0)));
        fixture.pass(1000);
        QCOMPARE(fixture.toldValues("arc_weld.welder_state", "phase"),
                 welds ? phases : QVariantList());
        QVERIFY(qAbs(fixture.weldState("welding_distance").toDouble() - (welds ? 100 : 0)) < 0.2);
        QCOMPARE(fixture.weldState("welding_wire_used").toDouble() > 0, welds);
        QCOMPARE(fixture.weldState("line").toInt(), 2);
        QCOMPARE(fixture.weldState("user").toString(), QString("anna"));
        QVERIFY(!fixture.controller.isBusy());
    }
    void timedLines_data()
    {
        addRows<QString, QString, QVector<Event>>(
            {{"feed", "FeedOnWire 1.5", "real", {Event::WireFeeds, Event::WireStops}},
             {"back", "FeedBackWire 1.5", "real", {Event::WireRetracts, Event::WireStops}},
             {"gas", "DetectGas 1.5", "real", {Event::GasFlows, Event::GasStops}},
             {"feed, dry", "FeedOnWire 1.5", "simu", {}}});
    }
    void timedLines()
    {
        const auto &[name, line, mode, events] = currentRow<QString, QString, QVector<Event>>();
        ProgramFixture fixture;
        fixture.go({line}, mode);
        QVERIFY(qAbs(fixture.finish() - 1500) <= 20);
        QVector<Event> seen = fixture.events();
        seen.removeAll(Event::Program);
        QCOMPARE(seen, events);
    }
    void unknownLinesAreIgnoredAloud()
    {
        ProgramFixture fixture;
        QCOMPARE(fixture.endOf({"Explode 5", "// a comment", "MoveL p3,v1000,fine,torch1", "Wait"}),
                 QString("finished, lines ignored: 2"));
        QVERIFY(fixture.isAt(p3));
        const QVariantList messages = fixture.toldValues("tl_program.state", "message");
        QVERIFY(messages.contains("line 1: \"Explode\" is unknown and was ignored"));
        QVERIFY(messages.contains("line 4: \"Wait\" is unknown and was ignored"));
        QCOMPARE(fixture.events().count(Event::Message), 2);
    }
    void mistakes_data()
    {
        addRows<QString, QString>({// the message after "line 2: "
                                   {"point", "MoveL p99,v50,fine,torch1", "there is no point p99"},
                                   {"reach", "MoveL Offs(p3,5000,0,0),v50,fine,torch1",
                                    "the robot does not get to Offs(p3,5000,0,0)"},
                                   {"weave", "WMoveL p3,v50,fine,torch1,wobj0,\"weavedata9\"",
                                    "there is no file \"weavedata9\""},
                                   {"time", "FeedOnWire 1,5",
                                    "feedonwire time format error: 1,5 is no time in seconds"}});
    }
    void mistakes()
    {
        const auto &[name, line, message] = currentRow<QString, QString>();
        for (const char *mode : {"real", "test_run"}) {
            ProgramFixture fixture;
            QCOMPARE(fixture.endOf({"WeaveOff", line, "MoveL p5,v50,fine,torch1"}, mode),
                     "line 2: " + message);
            QCOMPARE(fixture.state("state"), QVariant("error"));
            QCOMPARE(fixture.state("line"), QVariant(2));
            QCOMPARE(fixture.events().constLast(), Event::Alarm);
            QVERIFY(fixture.isAt(p1));
        }
    }
    void pauseGoOnAndStop()
    {
        ProgramFixture fixture;
        QVERIFY(fixture.goWelding(2000));
        QVERIFY(fixture.run("tl_program.pause").ok());
        const Vector3d stopped = fixture.tip();
        QVERIFY((stopped - p3).norm() > 30);
        QCOMPARE(fixture.weldState("current"), QVariant(0.0));
        fixture.pass(5000);
        QVERIFY(fixture.isAt(stopped));
        QCOMPARE(fixture.weldState("phase"), QVariant("idle"));

        QVERIFY(fixture.run("tl_program.run").ok());
        QVERIFY(fixture.passUntilPhase("ignition"));
        QVERIFY(fixture.isAt(stopped));
        fixture.finish();
        QVERIFY(fixture.isAt(p3 + Vector3d(0, 100, 0)));
        QVERIFY(qAbs(fixture.weldState("welding_distance").toDouble() - 100) < 0.3);
        QCOMPARE(fixture.toldValues("tl_program.state", "state"),
                 (QVariantList{"running", "paused", "running", "idle"}));

        QVERIFY(fixture.goWelding(2000)); // from the first line
        QVERIFY(fixture.run("tl_program.stop").ok());
        QCOMPARE(fixture.weldState("phase"), QVariant("post_flow"));
        const Vector3d end = fixture.tip();
        fixture.pass(3000);
        QVERIFY(fixture.isAt(end));
        QCOMPARE(fixture.state("state"), QVariant("idle"));
        QCOMPARE(fixture.state("message"), QVariant("stopped"));
    }
    // An empty controller gets files that can weld; one with files is not changed.
    void exampleFiles()
    {
        for (const bool used : {false, true}) {
            ControllerFixture fixture;
            if (used)
                fixture.set("arc_weld.weld_param", "arcdata7", QVariantMap{{"name", "arcdata7"}});
            QVERIFY(fixture.controller.fillWithExample().ok());
            for (const char *key : {"enable", "connect_to_welder"})
                QCOMPARE(fixture.get("arc_weld.welder_setting", key).value.toBool(), !used);
            for (const char *set : {"arcon_param", "weld_param", "arcoff_param"}) {
                const QVariantMap files = fixture.get(QString("arc_weld.") + set).value.toMap();
                const QVariant last = files.isEmpty() ? QVariant() : files.last();
                QCOMPARE(childAt(last, "current").toDouble() > 0, !used);
            }
        }
    }
    void theEndIsASum()
    {
        ProgramFixture fixture;
        QVERIFY(fixture.go(QStringList{"Wait 1"} + seam + QStringList{"Wait 2", "Wait 3"}).ok());
        QVERIFY(fixture.passUntilPhase("welding"));
        fixture.pass(2000);
        fixture.faults.set(Fault::ArcBreaks, true);
        fixture.finish();
        const QVariantMap sum = fixture.state("result").toMap();
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
        const auto alarms = [&fixture] {
            return fixture.get("cell.alarms", "entries").value.toList();
        };
        QCOMPARE(alarms().size(), 2); // one alarm is for all ignored lines
    }
    void whatAWeldNeeds_data()
    {
        using Step = std::function<void(ProgramFixture &)>;
        const auto turn = [](const char *what, bool on) -> Step {
            return [=](auto &f) { f.run("cell.switch", QVariantMap{{what, on}}); };
        };
        const Step leave = [](auto &f) {
            f.controller.beat(f.now, {});
            f.pass(1100);
        };
        const Step cutOff = [](auto &f) {
            f.save("weld_param", with(ProgramFixture::weld(), "current", 0.0));
        };
        addRows<Step>({{"no_power", turn("power", false)},
                       {"cell_fault", turn("fault", true)},
                       {"pendant_lost", leave},
                       {"no_current", cutOff}});
    }
    void whatAWeldNeeds()
    {
        const auto &[code, lose] = currentRow<std::function<void(ProgramFixture &)>>();
        ProgramFixture fixture;
        QVERIFY(fixture.goWelding(1000));
        lose(fixture);
        fixture.pass(100);
        QVERIFY(fixture.state("state") != "running");
        QCOMPARE(fixture.weldState("current"), QVariant(0.0));
        const QVariantList alarms = fixture.get("cell.alarms", "entries").value.toList();
        QCOMPARE(childAt(alarms.last(), "code").toByteArray(), code);
        if (code == "no_power" || code == "cell_fault") {
            const Reply refused = fixture.run("tl_program.run");
            QCOMPARE(refused.code, int(WrongState));
            QCOMPARE(childAt(refused.value, "reason").toByteArray(), code);
        }
    }
    void aWeldNeedsAWelder()
    {
        ProgramFixture unconnected;
        const QVariantMap welder = ProgramFixture::welder("RL/RPL", 350, true);
        unconnected.run("arc_weld.set_welder", with(welder, "connect_to_welder", false));
        QCOMPARE(unconnected.endOf(seam), QString("line 2: no actual welder is connected"));
    }
    void commandsInTheWrongState()
    {
        ProgramFixture fixture;
        const auto refused = [&fixture](const char *command, const QVariant &payload = {}) {
            return fixture.run(command, payload).code == WrongState;
        };
        QVERIFY(refused("tl_program.run") && refused("tl_program.pause"));
        QVERIFY(fixture.run("tl_program.stop").ok()); // stopping is never refused
        QCOMPARE(fixture.run("tl_program.load", QVariantMap{{"name", "x"}}).code, int(BadPayload));
        const QVariantMap other{{"name", "other"}, {"text", ""}};
        const QVariantMap away = ProgramFixture::target(p1);
        fixture.go({"MoveL p3,v50,fine,torch1"}, "simu");
        fixture.pass(100);
        QVERIFY(refused("tl_program.run"));
        for (const bool paused : {false, true}) {
            QCOMPARE(fixture.state("state"), QVariant(paused ? "paused" : "running"));
            QVERIFY(refused("tl_program.load", other) && refused("motion.move.to_point", away));
            if (!paused)
                QVERIFY(fixture.run("motion.move.stop").ok()); // pauses the program
            fixture.pass(100);
        }
        QVERIFY(refused("tl_program.pause"));
        QVERIFY(fixture.run("tl_program.run").ok());
        fixture.finish();
        QVERIFY(fixture.isAt(p3));
        QVERIFY(fixture.run("motion.move.to_point", away).ok());
        QVERIFY(refused("tl_program.run")); // the robot is moving
        QVERIFY(fixture.run("tl_program.load", other).ok());
        QCOMPARE(fixture.state("name"), QVariant("other"));
    }
};

QTEST_GUILESS_MAIN(tst_ProgramRun)
#include "tst_programrun.moc"
