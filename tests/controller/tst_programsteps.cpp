#include <QtTest>
#include <set>

#include "programfixture.h"
#include "support/datarows.h"

using namespace welmo::controller;
using namespace testsupport;

namespace {

const QStringList twoLegs{"MoveL p3,v1000,fine,torch1,wobj0",
                          "ArcOn \"arcondata1\",\"arcdata1\"",
                          "WMoveL Offs(p3,0,40,0),v50,fine,torch1",
                          "WMoveL Offs(p3,0,100,0),v50,fine,torch1",
                          "ArcOff \"arcoffdata1\"",
                          "MoveL p4,v1000,fine,torch1,wobj0"};

/// Notes every millimetre of the seam over which the arc burned.
struct SeamFixture : ProgramFixture
{
    std::multiset<int> burned;

    void weldOn()
    {
        passUntil([this] {
            const Vector3d way = tip() - p3;
            const int mm = int(way.y());
            const bool isSeam = qAbs(way.x()) < 0.01 && qAbs(way.z()) < 0.01;
            if (isSeam && weldState("phase") == "welding" && weldState("current") != 0
                && (burned.empty() || mm != last))
                burned.insert(last = mm);
            return state("state") != "running" || --limit == 0;
        });
    }
    /// Goes on for so many steps of 10 ms.
    void weldFor(int steps)
    {
        limit = steps;
        weldOn();
        limit = -1;
    }

private:
    int last = -1;
    int limit = -1;
};

} // namespace

/// Runs that begin within a program, go line by line, or weld the rest of a seam.
class tst_ProgramSteps : public QObject
{
    Q_OBJECT
private slots:
    void reweld_data()
    {
        const Vector3d last = p3 + Vector3d(0, 100, 0);
        const Vector3d middle = p3 + Vector3d(0, 65, 0);
        const QString alarm = "stop_and_alarm", runOn = "continue_running";
        // mm of seam until the arc is lost, and until it is back (0: never); the line that is
        // offered; the end of the torch, and how far off it may be, mm
        addRows<QStringList, QString, int, int, int, Vector3d, int>(
            {{"the run stopped", seam, alarm, 40, 0, 3, last, 0},
             {"and goes on", twoLegs, alarm, 20, 0, 3, p4, 0},
             {"the torch went on", seam, runOn, 40, 0, 3, last, 50},
             {"back over a corner", twoLegs, alarm, 45, 0, 3, p4, 0},
             {"gone on over one", twoLegs, runOn, 30, 0, 3, last, 50},
             {"in the second move", twoLegs, runOn, 70, 0, 4, last, 50},
             {"it came back", twoLegs, runOn, 25, 40, 3, middle, 50},
             {"stopped by hand", seam, "", 50, 0, 3, last, 0}});
    }
    void reweld()
    {
        const auto &[name, lines, option, lostAfter, foundAfter, line, end, clear] =
            currentRow<QStringList, QString, int, int, int, Vector3d, int>();
        SeamFixture fixture;
        fixture.save("weld_param", ProgramFixture::weld(qPrintable(option)));
        QVERIFY(fixture.go(lines).ok());
        QVERIFY(fixture.passUntilPhase("welding"));
        fixture.weldFor(lostAfter * 5); // 20 mm/s
        if (option.isEmpty())
            fixture.run("tl_program.stop");
        fixture.faults.set(Fault::ArcBreaks, !option.isEmpty());
        if (foundAfter > 0) {
            fixture.weldFor(foundAfter * 5);
            fixture.faults.clear();
        }
        fixture.weldOn();
        fixture.faults.clear();

        const QVariantMap offer = fixture.state("reweld").toMap();
        QCOMPARE(offer["line"].toInt(), line);
        const double from = offer["from"].toDouble();
        QVERIFY(qAbs(offer["lost"].toDouble() - 10 - from) < 0.11);
        QVERIFY(fixture.run("tl_program.reweld").ok());
        QVERIFY(fixture.passUntilPhase("ignition"));
        QVERIFY(fixture.isAt(p3 + Vector3d(0, from, 0), 0.1));
        fixture.weldOn();
        QCOMPARE(fixture.state("message"), QVariant("finished"));
        QVERIFY(qAbs((fixture.tip() - end).norm() - clear) < 0.5);
        for (int mm = 0; mm < 100; ++mm)
            QVERIFY2(fixture.burned.count(mm) > 0, qPrintable(QString::number(mm)));
        QVERIFY(fixture.burned.size() < 100 + 10 + 5);
        const QVariantMap sum = fixture.state("result").toMap();
        QVERIFY(qAbs(sum["welded"].toDouble() - 100) < 1);
        QCOMPARE(sum["seams"].toInt(), 1);
        QCOMPARE(fixture.state("reweld").toMap()["line"].toInt(), 0);
        QCOMPARE(fixture.run("tl_program.reweld").code, int(WrongState));
    }
    void whatFailsCanBeTriedAgain()
    {
        ProgramFixture fixture;
        fixture.save("weld_param", ProgramFixture::weld("stop_and_alarm"));
        QVERIFY(fixture.goWelding(2000));
        fixture.faults.set(Fault::ArcBreaks, true);
        fixture.finish();
        const QVariant offer = fixture.state("reweld");
        QVERIFY(fixture.run("tl_program.reweld").ok());
        fixture.finish();
        QCOMPARE(fixture.state("state"), QVariant("error"));
        QCOMPARE(fixture.state("reweld"), offer);
        fixture.faults.clear();
        QVERIFY(fixture.run("tl_program.reweld").ok());
        fixture.finish();
        QCOMPARE(fixture.state("message"), QVariant("finished"));
    }
    void steps()
    {
        ProgramFixture fixture;
        fixture.endOf({}); // real mode
        fixture.run("tl_program.load",
                    QVariantMap{{"name", "test"}, {"text", twoLegs.join("\n//\n")}});
        const auto step = [&](const QVariantMap &how = {}) {
            const bool good = fixture.run("tl_program.step", how).ok();
            fixture.finish();
            return good;
        };
        const auto isBefore = [&](int line, const Vector3d &place) {
            return fixture.state("line") == line && fixture.state("state") == "paused"
                && fixture.isAt(place);
        };
        const Vector3d corner = p3 + Vector3d(0, 40, 0);
        const QVariantMap back{{"back", true}};
        QVERIFY(!step(back));
        QVERIFY(step() && isBefore(3, p3));
        QVERIFY(step() && isBefore(5, p3)); // comments are passed over
        QVERIFY(step() && isBefore(7, corner));
        QVERIFY(step(back) && isBefore(5, p3));
        QVERIFY(step(back) && isBefore(3, p3));
        QVERIFY(step(back) && isBefore(1, p1));
        QVERIFY(!step(back));
        QVERIFY(step() && step() && step() && isBefore(7, corner));
        QVERIFY(!fixture.events().contains(Event::Weld));
        // After steps into a seam, the run goes on without an arc.
        QVERIFY(fixture.run("tl_program.run").ok());
        fixture.finish();
        QVERIFY(!fixture.events().contains(Event::Weld));
        QCOMPARE(fixture.faultsOfRun(), QStringList("7: no_arc_on 3"));
        QVERIFY(step({{"line", 1}}) && isBefore(3, p3));
        QVERIFY(fixture.run("tl_program.run").ok());
        QVERIFY(fixture.passUntilPhase("welding"));
        // A step continues without an arc.
        fixture.pass(500);
        QVERIFY(fixture.run("tl_program.pause").ok());
        fixture.pass(1000);
        fixture.told.clear();
        QVERIFY(step() && isBefore(7, corner));
        QCOMPARE(fixture.toldValues("arc_weld.welder_state", "phase"), QVariantList());
        QVERIFY(step() && step() && step());
        QCOMPARE(fixture.state("state"), QVariant("idle"));
    }
    void fromALine_data()
    {
        // true if it welds; true if it runs; the fault
        addRows<int, bool, bool, QString>({{"the seam's start", 2, true, true, ""},
                                           {"within it", 3, false, true, "3: no_arc_on 2"},
                                           {"after its last move", 5, false, true, ""},
                                           {"the last", 6, false, true, ""},
                                           {"beyond", 7, false, false, ""},
                                           {"none", 0, false, false, ""}});
    }
    void fromALine()
    {
        const auto &[name, line, welds, runs, fault] = currentRow<int, bool, bool, QString>();
        ProgramFixture fixture;
        fixture.go(twoLegs);
        fixture.run("tl_program.stop");
        fixture.told.clear();
        const QVariantMap from{{"line", line}};
        QCOMPARE(fixture.run("tl_program.run", from).ok(), runs);
        fixture.finish();
        QCOMPARE(fixture.isAt(p4), runs);
        QCOMPARE(!fixture.toldValues("arc_weld.welder_state", "phase").isEmpty(), welds);
        const QVariantList lines = fixture.toldValues("tl_program.state", "line");
        QCOMPARE(lines.contains(from["line"]), runs);
        QVERIFY(!lines.contains(1));
        QCOMPARE(fixture.faultsOfRun().join(", "), fault);
    }
};

QTEST_GUILESS_MAIN(tst_ProgramSteps)
#include "tst_programsteps.moc"
