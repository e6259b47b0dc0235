#include <QtTest>

#include "programfixture.h"
#include "support/datarows.h"

using namespace welmo::controller;
using namespace testsupport;

namespace {

const char *const alarm = "stop_and_alarm";
const char *const again = "auto_arc_reignition";
const char *const runOn = "continue_running";

} // namespace

/// The phases of a weld, as its files say, and faults in them.
class tst_Weld : public QObject
{
    Q_OBJECT
private slots:
    void phasesAreToldAndNotedDown()
    {
        ProgramFixture fixture;
        QVariantMap start = with(ProgramFixture::arcOn(), "prearc_time", 30);
        start = with(with(start, "pre_wirefeed_time", 40), "confirm_time", 120);
        fixture.save("arcon_param", start);
        QCOMPARE(fixture.endOf(seam), QString("finished"));
        fixture.pass(1000);
        QStringList words;
        const QVariantList entries = fixture.get("cell.journal", "entries").value.toList();
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
        QCOMPARE(fixture.toldValues("arc_weld.welder_state", "welding_name"),
                 (QVariantList{"arcondata1", "arcdata1", "arcoffdata1", "arcdata1"}));
        for (int i = 0; i < 1000; ++i)
            fixture.journal.add(i, Event::Message, QString::number(i));
        const QVariantList newest = fixture.get("cell.journal", "entries").value.toList();
        QCOMPARE(newest.size(), 200);
        QCOMPARE(newest.last().toMap()["cause"], QVariant("999"));
    }
    void setValues_data()
    {
        addRows<QString, double, double, double, double>(
            {// the mode of the current; set current and voltage; actual ones
             {"as suits", "current", 200.0, 100.0, 200.0, 24.0},
             {"least", "current", 200.0, 0.0, 200.0, 18.0},
             {"wire speed", "wire_feed", 100.0, 200.0, 198.0, 29.875}});
    }
    void setValues()
    {
        const auto &[name, mode, current, voltage, amperes, volts] =
            currentRow<QString, double, double, double, double>();
        QVariantMap file{{"name", "arcdata1"}, {"current_mode", mode}, {"ramp_time", 400}};
        file = with(with(file, "current", current), "voltage", voltage); // unified
        ProgramFixture fixture;
        fixture.save("weld_param", file);
        QVERIFY(fixture.goWelding(200));
        QVERIFY(fixture.isNear("current", (150 + amperes) / 2)); // half-way up the ramp
        fixture.pass(200);
        QVERIFY(fixture.isNear("current", amperes) && fixture.isNear("voltage", volts));
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
            ProgramFixture fixture;
            fixture.save("arcon_param", with(ProgramFixture::arcOn(), "re_arcon", retries));
            fixture.faults.set(Fault::NoArc, true);
            fixture.go(seam);
            QVERIFY(fixture.passUntilPhase("ignition"));
            fixture.pass((300 + 40) * failures - 20);
            QCOMPARE(fixture.state("state"), QVariant(strikes ? "running" : "error"));
            fixture.faults.clear();
            fixture.pass(150);
            QVERIFY(!strikes || fixture.isNear("current", 150 + 10 * failures));
            QVERIFY(!strikes || fixture.isNear("voltage", 20 + 2 * failures));
            QCOMPARE(fixture.passUntilPhase("welding"), strikes);
        }
    }
    void faults_data()
    {
        addRows<Fault, QString, const char *, QString, QString>(
            {// the phase in which the fault comes; the message; the first alarm and its file
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
              "line 2: the welder reports an error", "welder_error "}});
    }
    void faults()
    {
        const auto &[name, fault, phase, option, message, first] =
            currentRow<Fault, QString, const char *, QString, QString>();
        ProgramFixture fixture;
        fixture.save("weld_param", ProgramFixture::weld(option));
        fixture.go(seam);
        QVERIFY(fixture.passUntilPhase(phase));
        fixture.faults.set(fault, true);
        fixture.finish();
        QCOMPARE(fixture.state("message").toString(), message);
        const bool finished = message == "finished";
        QCOMPARE(fixture.state("state"), QVariant(finished ? "idle" : "error"));
        QCOMPARE(fixture.events().contains(Event::Alarm), !finished);
        const QVariantMap raised = fixture.get("cell.alarms", "entries").value.toList()[0].toMap();
        QCOMPARE(raised["code"].toString() + ' ' + raised["file"].toString(), first);
        QCOMPARE(raised["line"].toInt(), message == "finished" ? 3 : message.midRef(5, 1).toInt());
        QCOMPARE(fixture.get("cell.state", "state").value, QVariant(finished ? "idle" : "fault"));
        fixture.pass(2000);
        QCOMPARE(fixture.weldState("phase"), QVariant("idle"));
        QCOMPARE(fixture.weldState("current"), QVariant(0.0));
    }
    void reignitesWhereItBroke()
    {
        ProgramFixture fixture;
        fixture.save("weld_param", ProgramFixture::weld(again));
        QVERIFY(fixture.goWelding(1000));
        fixture.faults.set(Fault::ArcBreaks, true);
        fixture.pass(100); // shorter than detect_time
        fixture.faults.clear();
        fixture.pass(900);
        QCOMPARE(fixture.weldState("phase"), QVariant("welding"));
        const Vector3d broken = fixture.tip();
        fixture.faults.set(Fault::ArcBreaks, true);
        QVERIFY(fixture.passUntilPhase("ignition"));
        const Vector3d stopped = fixture.tip(); // 100 ms at 20 mm/s later
        QVERIFY(qAbs((stopped - broken).norm() - 2) < 0.5);
        fixture.faults.clear();
        QVERIFY(fixture.passUntilPhase("welding"));
        QVERIFY(fixture.isAt(stopped - Vector3d(0, 10, 0), 1));
        fixture.finish();
        QVERIFY(fixture.isAt(p3 + Vector3d(0, 100, 0)));
        QVERIFY(qAbs(fixture.weldState("welding_distance").toDouble() - (100 + 10 - 2 - 2)) < 1);
    }
    void stuckWireHasToBeFreed()
    {
        ProgramFixture fixture;
        fixture.faults.set(Fault::WireSticks, true);
        QCOMPARE(fixture.endOf(seam), QString("line 4: wire_sticks"));
        QCOMPARE(fixture.endOf(seam), QString("line 2: the wire sticks"));
        fixture.faults.clear();
        QCOMPARE(fixture.endOf(seam), QString("finished"));
        const QVariantMap free{
            {"enable", true}, {"current", 30.0}, {"voltage", 10.0}, {"time", 130}};
        fixture.save("arcoff_param", with(ProgramFixture::arcOff(), "anti_wire_stick_param", free));
        fixture.faults.set(Fault::WireSticks, true);
        fixture.go(seam);
        QVERIFY(fixture.passUntilPhase("crater"));
        QVERIFY(fixture.passUntil([&] { return fixture.weldState("current") == 30.0; }));
        fixture.finish();
        QCOMPARE(fixture.state("message"), QVariant("finished"));
    }
    void savingActsOnTheRunningWeld()
    {
        ProgramFixture fixture;
        const auto has = [&](double current, double voltage, double speed) {
            fixture.pass(300);
            return fixture.isNear("current", current) && fixture.isNear("voltage", voltage)
                && fixture.isNear("welding_speed", speed);
        };
        QVERIFY(fixture.goWelding(200));
        QVERIFY(has(200, 24, 20));
        QVariantMap file = with(ProgramFixture::weld(), "current", 170.0);
        fixture.save("weld_param", with(file, "name", "arcdata2"));
        QVERIFY(has(200, 24, 20));
        file = with(file, "weld_speed", 10);
        fixture.save("weld_param", file);
        QVERIFY(has(170, 24, 10));
        QVERIFY(fixture.run("arc_weld.enable_weld_param", with(file, "voltage", 21.0)).ok());
        QVERIFY(has(170, 21, 10));
        fixture.run("arc_weld.remove.weld_param", QStringList{"arcdata1"});
        QVERIFY(has(170, 21, 10));
    }
    void valuesComeAtTheRate()
    {
        for (const int rate : {10, 500}) {
            ProgramFixture fixture;
            fixture.set("arc_weld.welder_state_rate", {}, QVariantMap{{"rate", rate}});
            QVERIFY(fixture.goWelding(0));
            fixture.told.clear();
            fixture.pass(2000);
            int count = 0;
            for (const ControllerFixture::Told &entry : qAsConst(fixture.told))
                count += entry.path == "arc_weld.welder_state";
            QVERIFY2(count > 2 * rate * 0.95 && count <= 2 * rate,
                     qPrintable(QString::number(count)));
            fixture.faults.set(Fault::WelderError, true); // the weld ends at once
            fixture.pass(2000);
            for (const char *key : {"current", "welding_distance"})
                QCOMPARE(fixture.toldValues("arc_weld.welder_state", key).constLast(),
                         fixture.weldState(key));
            fixture.told.clear();
            fixture.pass(2000);
            QVERIFY(fixture.told.isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(tst_Weld)
#include "tst_weld.moc"
