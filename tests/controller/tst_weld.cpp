#include <QtTest>

#include "programbench.h"
#include "support/rows.h"

using namespace welmo::controller;
using Eigen::Vector3d;
using Fault = Faults::Fault;
using Event = Journal::Event;
using testsupport::Rows;

namespace {

const char *const alarm = "stop_and_alarm";
const char *const again = "auto_arc_reignition";
const char *const runOn = "continue_running";

} // namespace

/// A weld goes through its phases as the files say, whatever happens to it.
class tst_Weld : public QObject
{
    Q_OBJECT
private slots:
    void phasesAreToldAndNotedDown()
    {
        ProgramBench bench;
        QVariantMap start = with(ProgramBench::arcOn(), "prearc_time", 30);
        start = with(with(start, "pre_wirefeed_time", 40), "confirm_time", 120);
        bench.save("arcon_param", start);
        QCOMPARE(bench.endOf(seam), QString("finished"));
        bench.pass(1000);
        QStringList words;
        const QVariantList entries = bench.get("cell.journal", "entries").value.toList();
        qint64 before = 0;
        for (const QVariant &entry : entries) {
            const QVariantMap map = entry.toMap();
            const qint64 time = map["time"].toLongLong();
            words.append(map["event"].toString() + ' ' + map["cause"].toString());
            if (words.size() > 2)
                words.last() += QString(" after %1").arg(time - before);
            before = time;
        }
        QCOMPARE(words,
                 (QStringList{"program running", "weld pre_flow", "weld ignition after 200",
                              "weld welding after 390", "weld crater after 5000",
                              "weld post_flow after 300", "program idle after 0",
                              "weld idle after 200"}));
        QCOMPARE(bench.toldValues("arc_weld.welder_state", "welding_name"),
                 (QVariantList{"arcondata1", "arcdata1", "arcoffdata1", "arcdata1"}));
        for (int i = 0; i < 1000; ++i)
            bench.journal.add(i, Event::Message, QString::number(i));
        const QVariantList newest = bench.get("cell.journal", "entries").value.toList();
        QCOMPARE(newest.size(), 200);
        QCOMPARE(newest.last().toMap()["cause"], QVariant("999"));
    }
    void setValues()
    {
        const Rows<QString, double, double, double, double> rows{
            // how the current is said, set values; what flows
            {"as suits", "current", 200.0, 100.0, 200.0, 24.0},
            {"least", "current", 200.0, 0.0, 200.0, 18.0},
            {"wire speed", "wire_feed", 100.0, 200.0, 198.0, 29.875},
        };
        for (const auto &[name, mode, current, voltage, amperes, volts] : rows) {
            QVariantMap file{{"name", "arcdata1"}, {"current_mode", mode}, {"ramp_time", 400}};
            file = with(with(file, "current", current), "voltage", voltage); // unified
            ProgramBench bench;
            bench.save("weld_param", file);
            QVERIFY(bench.goWelding(200));
            QVERIFY(bench.isNear("current", (150 + amperes) / 2)); // half the way
            bench.pass(200);
            QVERIFY(bench.isNear("current", amperes) && bench.isNear("voltage", volts));
        }
    }
    void retriesWithMore()
    {
        for (const int failures : {1, 2, 3}) {
            const bool strikes = failures < 3;
            const QVariantMap retries{{"enable", true},
                                      {"retry_time", 2},
                                      {"current_step", 10.0},
                                      {"voltage_step", 2.0},
                                      {"wire_retract_time", 40}};
            ProgramBench bench;
            bench.save("arcon_param", with(ProgramBench::arcOn(), "re_arcon", retries));
            bench.faults.set(Fault::NoArc, true);
            bench.go(seam);
            QVERIFY(bench.passUntilPhase("ignition"));
            bench.pass((300 + 40) * failures - 20);
            QCOMPARE(bench.state("state"), QVariant(strikes ? "running" : "error"));
            bench.faults.clear();
            bench.pass(150);
            QVERIFY(!strikes || bench.isNear("current", 150 + 10 * failures));
            QVERIFY(!strikes || bench.isNear("voltage", 20 + 2 * failures));
            QCOMPARE(bench.passUntilPhase("welding"), strikes);
        }
    }
    void faults()
    {
        const Rows<Fault, QString, const char *, QString, QString> rows{
            // the phase in which it comes; the message; the first alarm, with its file
            {"no arc", Fault::NoArc, "pre_flow", alarm, "line 2: no_arc", "no_arc arcondata1"},
            {"no gas", Fault::NoGas, "welding", alarm, "line 3: no_gas", "no_gas arcdata1"},
            {"arc breaks", Fault::ArcBreaks, "welding", alarm, "line 3: arc_lost",
             "arc_lost arcdata1"},
            {"wire stuck", Fault::WireStuck, "welding", alarm, "line 3: wire_stuck",
             "wire_stuck arcdata1"},
            {"run on", Fault::ArcBreaks, "welding", runOn, "finished", "arc_lost arcdata1"},
            {"cannot be struck again", Fault::ArcBreaks, "welding", again, "line 3: no_arc",
             "arc_restruck arcdata1"},
            {"welder error", Fault::WelderError, "welding", alarm, "line 3: welder_error",
             "welder_error arcdata1"},
            {"welder error at first", Fault::WelderError, "idle", alarm,
             "line 2: the welder reports an error", "welder_error "},
        };
        for (const auto &[name, fault, phase, option, message, first] : rows) {
            ProgramBench bench;
            bench.save("weld_param", ProgramBench::weld(option));
            bench.go(seam);
            QVERIFY(bench.passUntilPhase(phase));
            bench.faults.set(fault, true);
            bench.finish();
            QCOMPARE(bench.state("message").toString(), message);
            const bool finished = message == "finished";
            QCOMPARE(bench.state("state"), QVariant(finished ? "idle" : "error"));
            QCOMPARE(bench.events().contains(Event::Alarm), !finished);
            const QVariantMap raised =
                bench.get("cell.alarms", "entries").value.toList()[0].toMap();
            QCOMPARE(raised["code"].toString() + ' ' + raised["file"].toString(), first);
            QCOMPARE(raised["line"].toInt(), message == "finished" ? 3 : message.mid(5, 1).toInt());
            QCOMPARE(bench.get("cell.state", "state").value, QVariant(finished ? "idle" : "fault"));
            bench.pass(2000);
            QCOMPARE(bench.weldState("phase"), QVariant("idle"));
            QCOMPARE(bench.weldState("current"), QVariant(0.0));
        }
    }
    void reignitesWhereItBroke()
    {
        ProgramBench bench;
        bench.save("weld_param", ProgramBench::weld(again));
        QVERIFY(bench.goWelding(1000));
        bench.faults.set(Fault::ArcBreaks, true);
        bench.pass(100); // not too long yet
        bench.faults.clear();
        bench.pass(900);
        QCOMPARE(bench.weldState("phase"), QVariant("welding"));
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
        QVERIFY(qAbs(bench.weldState("welding_distance").toDouble() - (100 + 10 - 2 - 2)) < 1);
    }
    void stuckWireHasToBeFreed()
    {
        ProgramBench bench;
        bench.faults.set(Fault::WireSticks, true);
        QCOMPARE(bench.endOf(seam), QString("line 4: wire_sticks"));
        QCOMPARE(bench.endOf(seam), QString("line 2: the wire sticks"));
        bench.faults.clear();
        QCOMPARE(bench.endOf(seam), QString("finished"));
        const QVariantMap free{
            {"enable", true}, {"current", 30.0}, {"voltage", 10.0}, {"time", 130}};
        bench.save("arcoff_param", with(ProgramBench::arcOff(), "anti_wire_stick_param", free));
        bench.faults.set(Fault::WireSticks, true);
        bench.go(seam);
        QVERIFY(bench.passUntilPhase("crater"));
        QVERIFY(bench.passUntil([&] { return bench.weldState("current") == 30.0; }));
        bench.finish();
        QCOMPARE(bench.state("message"), QVariant("finished"));
    }
    void savingActsOnTheRunningWeld()
    {
        ProgramBench bench;
        const auto has = [&](double current, double voltage, double speed) {
            bench.pass(300);
            return bench.isNear("current", current) && bench.isNear("voltage", voltage)
                && bench.isNear("welding_speed", speed);
        };
        QVERIFY(bench.goWelding(200));
        QVERIFY(has(200, 24, 20));
        QVariantMap file = with(ProgramBench::weld(), "current", 170.0);
        bench.save("weld_param", with(file, "name", "arcdata2"));
        QVERIFY(has(200, 24, 20));
        file = with(file, "weld_speed", 10);
        bench.save("weld_param", file);
        QVERIFY(has(170, 24, 10));
        QVERIFY(bench.run("arc_weld.enable_weld_param", with(file, "voltage", 21.0)).ok());
        QVERIFY(has(170, 21, 10));
        bench.run("arc_weld.remove.weld_param", QStringList{"arcdata1"});
        QVERIFY(has(170, 21, 10));
    }
    void valuesComeAtTheRate()
    {
        for (const int rate : {10, 500}) {
            ProgramBench bench;
            bench.set("arc_weld.welder_state_rate", {}, QVariantMap{{"rate", rate}});
            QVERIFY(bench.goWelding(0));
            bench.told.clear();
            bench.pass(2000);
            int count = 0;
            for (const ControllerBench::Told &entry : qAsConst(bench.told))
                count += entry.path == "arc_weld.welder_state";
            QVERIFY2(count > 2 * rate * 0.95 && count <= 2 * rate,
                     qPrintable(QString::number(count)));
            bench.faults.set(Fault::WelderError, true); // it ends at once
            bench.pass(2000);
            for (const char *key : {"current", "welding_distance"})
                QCOMPARE(bench.toldValues("arc_weld.welder_state", key).last(),
                         bench.weldState(key));
            bench.told.clear();
            bench.pass(2000);
            QVERIFY(bench.told.isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(tst_Weld)
#include "tst_weld.moc"
