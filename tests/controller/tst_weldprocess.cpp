#include <QtTest>

#include "controller/weldprocess.h"
#include "controllerbench.h"
#include "support/rows.h"

using namespace controller;
using Phase = WeldProcess::Phase;
using Trouble = WeldProcess::Trouble;
using testsupport::Rows;

namespace {

constexpr double noise = 0.016; // as part of a value

QVariantMap arcOnFile()
{
    const QVariantMap retries{
        {"enable", true},          {"retry_time", 2},      {"wire_retract_delay_time", 15},
        {"wire_retract_time", 25}, {"current_step", 10.0}, {"voltage_step", 2.0}};
    return {{"current_mode", "current"}, {"voltage_mode", "separate"},  {"current", 150.0},
            {"voltage", 20.0},           {"preflow_time", 200},         {"prearc_time", 30},
            {"pre_wirefeed_time", 40},   {"detect_time", 300},          {"confirm_time", 120},
            {"hold_time", 150},          {"slow_wire_feed_speed", 1.5}, {"ramp_time", 100},
            {"re_arcon", retries}};
}

QVariantMap weldFile(const char *option = "continue_running")
{
    const QVariantMap broken{
        {"detect_time", 250}, {"arc_break_option", option}, {"restart_back_distance", 8}};
    return {{"current_mode", "current"}, {"voltage_mode", "separate"}, {"current", 250.0},
            {"voltage", 26.0},           {"weld_speed", 10},           {"ramp_time", 400},
            {"arc_break_param", broken}};
}

QVariantMap arcOffFile(bool antiStick = false)
{
    const QVariantMap anti{
        {"enable", antiStick}, {"current", 30.0}, {"voltage", 10.0}, {"time", 130}};
    return {{"voltage_mode", "separate"},
            {"current", 90.0},
            {"voltage", 17.0},
            {"hold_time", 600},
            {"delay_gasoff_time", 350},
            {"wire_stick_detection_time", 70},
            {"anti_wire_stick_param", anti}};
}

bool isNear(double value, double expected)
{
    return std::abs(value - expected) <= noise * expected;
}

/// A weld with the hand of a test on it.
struct Bench
{
    WeldProcess weld;
    WeldProcess::Conditions world;
    double speed = 0;

    void start(const QVariantMap &arcOn = arcOnFile(), const QVariantMap &file = weldFile())
    {
        weld.start(ArcStart::from(arcOn), ArcWeld::from(file));
    }
    /// Up to the weld itself, with its values reached when nothing else is said.
    bool startWelding(const QVariantMap &file = weldFile(), int ms = 500)
    {
        start(arcOnFile(), file);
        const bool welds = reach(Phase::Welding);
        run(ms);
        return welds;
    }
    void finish(const QVariantMap &file = arcOffFile()) { weld.finish(ArcEnd::from(file)); }
    void run(int ms)
    {
        for (; ms > 0; --ms)
            weld.step(world, speed);
    }
    /// How long the present phase lasts from now on, at most @p limit ms.
    int rest(int limit = 10000)
    {
        const Phase phase = weld.phase();
        int ms = 0;
        for (; ms < limit && weld.phase() == phase; ++ms)
            run(1);
        return ms;
    }
    bool reach(Phase phase, int limit = 10000)
    {
        for (; limit > 0 && weld.phase() != phase; --limit)
            run(1);
        return weld.phase() == phase;
    }
    bool has(double amperes, double volts) const
    {
        const bool good = isNear(current(), amperes) && isNear(voltage(), volts);
        if (!good)
            qWarning("%g A, %g V", current(), voltage());
        return good;
    }
    bool isAt(Phase phase, Trouble trouble) const
    {
        return weld.phase() == phase && weld.trouble() == trouble;
    }
    double current() const { return weld.arc().current(); }
    double voltage() const { return weld.arc().voltage(); }
};

} // namespace

/// A weld goes through its phases as the files say, whatever happens to it.
class tst_WeldProcess : public QObject
{
    Q_OBJECT
private slots:
    void phasesTakeTheirTimes()
    {
        const Rows<Phase, int> rows{
            {"pre-flow", Phase::PreFlow, 200},
            {"ignition", Phase::Ignition, 30 + 40 + 1 + 120 + 150},
            {"welding", Phase::Welding, 3000},
            {"crater", Phase::Crater, 600},
            {"post-flow", Phase::PostFlow, 350},
            {"idle", Phase::Idle, 3000},
        };
        Bench bench;
        QVERIFY(bench.isAt(Phase::Idle, Trouble::None));
        bench.start();
        for (const auto &[name, phase, ms] : rows) {
            QVERIFY(bench.isAt(phase, Trouble::None));
            QVERIFY(phase < Phase::PostFlow || bench.current() == 0);
            QCOMPARE(bench.rest(3000), ms);
            if (phase == Phase::Welding)
                bench.finish();
        }
    }
    void setValues()
    {
        const Rows<QString, QString, double, double, double, double> rows{
            {"volts", "current", "separate", 180.0, 22.5, 180.0, 22.5},
            {"as suits", "current", "unified", 200.0, 100.0, 200.0, 24.0},
            {"least", "current", "unified", 200.0, 0.0, 200.0, 18.0},
            {"most", "current", "unified", 200.0, 200.0, 200.0, 30.0},
            {"wire speed", "wire_feed", "unified", 100.0, 100.0, 198.0, 23.9},
        };
        for (const auto &[name, currentMode, voltageMode, current, voltage, amperes, volts] :
             rows) {
            Bench bench;
            QVERIFY(bench.startWelding({{"current_mode", currentMode},
                                        {"voltage_mode", voltageMode},
                                        {"current", current},
                                        {"voltage", voltage}}));
            QVERIFY(bench.has(amperes, volts));
        }
    }
    void valuesRamp()
    {
        Bench bench;
        bench.start();
        QVERIFY(bench.reach(Phase::Ignition));
        bench.run(30);
        QCOMPARE(bench.current(), 0.0);
        QVERIFY(bench.voltage() > 40); // open circuit
        bench.run(40 + 1 + 50);
        QVERIFY(isNear(bench.current(), 75)); // half the way to the arc-start current
        QVERIFY(bench.reach(Phase::Welding));
        QVERIFY(bench.has(150, 20));
        bench.run(200);
        QVERIFY(bench.has(200, 23));
        bench.run(200);
        QVERIFY(bench.has(250, 26));
        bench.finish();
        bench.run(200);
        QVERIFY(isNear(bench.current(), 170));
        bench.run(200);
        QVERIFY(bench.has(90, 17));
    }
    void retriesWithMore()
    {
        // 0: switched off
        const Rows<int, int, bool> rows{
            {"at once", 2, 0, true}, {"second time", 2, 1, true},  {"last time", 2, 2, true},
            {"never", 2, 3, false},  {"not allowed", 0, 1, false},
        };
        for (const auto &[name, allowed, failures, strikes] : rows) {
            QVariantMap file = arcOnFile();
            file["re_arcon"] = with(file["re_arcon"].toMap(), "enable", allowed > 0);
            constexpr int lead = 30 + 40;
            constexpr int attempt = lead + 300;
            constexpr int pause = 15 + 25;
            Bench bench;
            bench.start(file);
            bench.run(200);
            bench.world.strikes = false;
            if (strikes) {
                bench.run((attempt + pause) * failures + lead);
                bench.world.strikes = true;
                bench.run(1 + 110);
                QVERIFY(bench.has(150 + 10 * failures, 20 + 2 * failures));
                QVERIFY(bench.reach(Phase::Welding, 300));
            } else {
                QCOMPARE(bench.rest(), attempt * failures + pause * (failures - 1));
                QVERIFY(bench.isAt(Phase::PostFlow, Trouble::NoArc));
            }
        }
    }
    void arcBreak()
    {
        const char *const runOn = "continue_running";
        const char *const stop = "stop_and_alarm";
        const char *const again = "auto_arc_reignition";
        const Rows<QByteArray, int, Phase, Trouble, bool, bool> rows{
            // how long it is out, ms; then whether it is missing, whether the torch is to go back
            {"short, run on", runOn, 250, Phase::Welding, Trouble::None, false, false},
            {"short, stop", stop, 250, Phase::Welding, Trouble::None, false, false},
            {"short, reignite", again, 250, Phase::Welding, Trouble::None, false, false},
            {"run on", runOn, 251, Phase::Welding, Trouble::None, true, false},
            {"stop", stop, 251, Phase::PostFlow, Trouble::ArcLost, false, false},
            {"reignite", again, 251, Phase::Ignition, Trouble::None, false, true},
            {"as long as it takes", again, 2000, Phase::Ignition, Trouble::None, false, true},
            {"unknown word", "explode", 251, Phase::Welding, Trouble::None, true, false},
        };
        for (const auto &[name, option, out, phase, trouble, missing, wantsReturn] : rows) {
            Bench bench;
            QVERIFY(bench.startWelding(weldFile(option)));
            bench.world.burns = false;
            bench.run(out);
            QCOMPARE(bench.current(), 0.0);
            QVERIFY(bench.isAt(phase, trouble));
            QCOMPARE(bench.weld.isArcMissing(), missing);
            QCOMPARE(bench.weld.wantsReturn(), wantsReturn);
        }
    }
    void noGasEndsIt()
    {
        for (const Phase phase : {Phase::PreFlow, Phase::Ignition, Phase::Welding, Phase::Crater}) {
            Bench bench;
            bench.start();
            QVERIFY(phase != Phase::Crater || bench.reach(Phase::Welding));
            if (phase == Phase::Crater)
                bench.finish();
            QVERIFY(bench.reach(phase));
            bench.world.gas = false;
            bench.run(1);
            QVERIFY(bench.isAt(Phase::PostFlow, Trouble::NoGas));
            QCOMPARE(bench.current(), 0.0);
            QVERIFY(bench.reach(Phase::Idle));
            QCOMPARE(bench.weld.trouble(), Trouble::NoGas);
        }
    }
    void wireSticks()
    {
        for (const bool antiStick : {false, true}) {
            Bench bench;
            bench.world.wireSticks = true;
            QVERIFY(bench.startWelding());
            bench.finish(arcOffFile(antiStick));
            bench.run(600 + 69);
            QCOMPARE(bench.current(), 0.0);
            bench.run(1);
            QCOMPARE(bench.current(), antiStick ? 30.0 : 0.0);
            QCOMPARE(bench.voltage(), antiStick ? 10.0 : 0.0);
            QCOMPARE(bench.rest(), antiStick ? 130 : 350);
            QVERIFY(antiStick ? bench.isAt(Phase::PostFlow, Trouble::None)
                              : bench.isAt(Phase::Idle, Trouble::WireSticks));
        }
    }
    void trimming()
    {
        constexpr int ramp = 400;
        const QVariantMap change{{"current", 220.0},
                                 {"voltage", 23.0},
                                 {"voltage_mode", "separate"},
                                 {"ramp_time", ramp},
                                 {"hold_time", 5000}};
        Bench bench;
        QVERIFY(bench.startWelding());
        bench.weld.trim(ArcWeld::from(change));
        bench.run(ramp / 2);
        QVERIFY(isNear(bench.current(), 235)); // half the way from 250
        bench.run(ramp / 2);
        QVERIFY(bench.has(220, 23));
        bench.finish(with(arcOffFile(), "hold_time", 5000));
        bench.run(1000);
        bench.weld.trim(ArcEnd::from(change));
        bench.run(ramp);
        QVERIFY(bench.has(220, 23));
        QCOMPARE(bench.weld.phase(), Phase::Crater);
    }
};

QTEST_GUILESS_MAIN(tst_WeldProcess)
#include "tst_weldprocess.moc"
