#include <QtTest>
#include <algorithm>

#include "controller/weldprocess.h"

using namespace controller;
using Phase = WeldProcess::Phase;
using Trouble = WeldProcess::Trouble;
using WhenBroken = ArcWeld::WhenBroken;

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

QVariantMap with(QVariantMap map, const QString &key, const QVariant &value)
{
    map[key] = value;
    return map;
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
            weld.step(world, speed);
        return ms;
    }
    bool reach(Phase phase, int limit = 10000)
    {
        for (; limit > 0 && weld.phase() != phase; --limit)
            weld.step(world, speed);
        return weld.phase() == phase;
    }
    double current() const { return weld.arc().current(); }
    double voltage() const { return weld.arc().voltage(); }
};

bool isNear(double value, double expected)
{
    return std::abs(value - expected) <= noise * expected;
}

} // namespace

Q_DECLARE_METATYPE(controller::WeldProcess::Phase)
Q_DECLARE_METATYPE(controller::WeldProcess::Trouble)

/// A weld goes through its phases as the files say, whatever happens to it.
class tst_WeldProcess : public QObject
{
    Q_OBJECT
private slots:
    void phasesTakeTheirTimes();
    void setValues_data();
    void setValues();
    void noiseIsLittleAndRepeatable();
    void valuesRamp();
    void countsWhileTheArcBurns();
    void retriesWithMore_data();
    void retriesWithMore();
    void arcBreak_data();
    void arcBreak();
    void missingArcComesBack();
    void reignitesAfterTheReturn();
    void noGasEndsIt_data();
    void noGasEndsIt();
    void wireSticks_data();
    void wireSticks();
    void trimming_data();
    void trimming();
    void interruptAndResume();
    void haltIsAtOnce();
};

void tst_WeldProcess::phasesTakeTheirTimes()
{
    Bench bench;
    QCOMPARE(bench.weld.phase(), Phase::Idle);
    bench.start();
    QCOMPARE(bench.weld.phase(), Phase::PreFlow);
    QCOMPARE(bench.rest(), 200);
    QCOMPARE(bench.weld.phase(), Phase::Ignition);
    QCOMPARE(bench.rest(), 30 + 40 + 1 + 120 + 150);
    QCOMPARE(bench.weld.phase(), Phase::Welding);
    QCOMPARE(bench.rest(3000), 3000);
    bench.weld.finish(ArcEnd::from(arcOffFile()));
    QCOMPARE(bench.weld.phase(), Phase::Crater);
    QCOMPARE(bench.rest(), 600);
    QCOMPARE(bench.weld.phase(), Phase::PostFlow);
    QCOMPARE(bench.current(), 0.0);
    QCOMPARE(bench.rest(), 350);
    QCOMPARE(bench.weld.phase(), Phase::Idle);
    QCOMPARE(bench.weld.trouble(), Trouble::None);
}

void tst_WeldProcess::setValues_data()
{
    QTest::addColumn<QString>("currentMode");
    QTest::addColumn<QString>("voltageMode");
    QTest::addColumn<double>("current");
    QTest::addColumn<double>("voltage");
    QTest::addColumn<double>("amperes");
    QTest::addColumn<double>("volts");
    QTest::newRow("volts") << "current"
                           << "separate" << 180.0 << 22.5 << 180.0 << 22.5;
    QTest::newRow("as suits") << "current"
                              << "unified" << 200.0 << 100.0 << 200.0 << 24.0;
    QTest::newRow("least") << "current"
                           << "unified" << 200.0 << 0.0 << 200.0 << 18.0;
    QTest::newRow("most") << "current"
                          << "unified" << 200.0 << 200.0 << 200.0 << 30.0;
    QTest::newRow("wire speed") << "wire_feed"
                                << "unified" << 100.0 << 100.0 << 198.0 << 23.9;
}

void tst_WeldProcess::setValues()
{
    QFETCH(QString, currentMode);
    QFETCH(QString, voltageMode);
    QFETCH(double, current);
    QFETCH(double, voltage);
    QFETCH(double, amperes);
    QFETCH(double, volts);
    Bench bench;
    bench.start(arcOnFile(),
                {{"current_mode", currentMode},
                 {"voltage_mode", voltageMode},
                 {"current", current},
                 {"voltage", voltage}});
    QVERIFY(bench.reach(Phase::Welding));
    bench.run(500);
    QVERIFY2(isNear(bench.current(), amperes), qPrintable(QString::number(bench.current())));
    QVERIFY2(isNear(bench.voltage(), volts), qPrintable(QString::number(bench.voltage())));
}

void tst_WeldProcess::noiseIsLittleAndRepeatable()
{
    const auto curve = [](quint32 seed) {
        Bench bench;
        bench.weld = WeldProcess(seed);
        bench.start();
        bench.reach(Phase::Welding);
        bench.run(400);
        QVector<double> values;
        for (int i = 0; i < 500; ++i) {
            bench.run(1);
            values.append(bench.current());
        }
        return values;
    };
    const QVector<double> first = curve(1);
    const auto [low, high] = std::minmax_element(first.begin(), first.end());
    QVERIFY(*low < 250 && *low >= 250 * (1 - noise));
    QVERIFY(*high > 250 && *high <= 250 * (1 + noise));
    QCOMPARE(curve(1), first);
    QVERIFY(curve(2) != first);
}

void tst_WeldProcess::valuesRamp()
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
    QVERIFY(isNear(bench.current(), 150));
    bench.run(200);
    QVERIFY(isNear(bench.current(), 200));
    QVERIFY(isNear(bench.voltage(), 23));
    bench.run(200);
    QVERIFY(isNear(bench.current(), 250));
    bench.weld.finish(ArcEnd::from(arcOffFile()));
    bench.run(200);
    QVERIFY(isNear(bench.current(), 170));
    bench.run(200);
    QVERIFY(isNear(bench.current(), 90));
    QVERIFY(isNear(bench.voltage(), 17));
}

void tst_WeldProcess::countsWhileTheArcBurns()
{
    Bench bench;
    bench.start(arcOnFile(), with(weldFile(), "ramp_time", 0));
    QVERIFY(bench.reach(Phase::Welding));
    const double wireBefore = bench.weld.arc().wireUsed();
    QVERIFY(wireBefore > 0);
    QCOMPARE(bench.weld.arc().distance(), 0.0);
    QCOMPARE(bench.weld.arc().minutes(), 271 / 60000.0); // it burned on the spot
    bench.speed = 12;
    bench.run(30000);
    QVERIFY(qAbs(bench.weld.arc().distance() - 360) < 1e-6);
    QCOMPARE(bench.weld.arc().minutes(), 30271 / 60000.0);
    QVERIFY(isNear(bench.weld.arc().wireUsed() - wireBefore, wireSpeedAt(250) / 2));
    bench.world.burns = false;
    bench.run(5000);
    QVERIFY(qAbs(bench.weld.arc().distance() - 360) < 1e-6);
    bench.start();
    QCOMPARE(bench.weld.arc().distance(), 0.0);
    QCOMPARE(bench.weld.arc().minutes(), 0.0);
}

void tst_WeldProcess::retriesWithMore_data()
{
    QTest::addColumn<int>("allowed"); // 0: switched off
    QTest::addColumn<int>("failures");
    QTest::addColumn<bool>("strikes");
    QTest::newRow("at once") << 2 << 0 << true;
    QTest::newRow("second time") << 2 << 1 << true;
    QTest::newRow("last time") << 2 << 2 << true;
    QTest::newRow("never") << 2 << 3 << false;
    QTest::newRow("not allowed") << 0 << 1 << false;
}

void tst_WeldProcess::retriesWithMore()
{
    QFETCH(int, allowed);
    QFETCH(int, failures);
    QFETCH(bool, strikes);
    QVariantMap file = arcOnFile();
    file["re_arcon"] = with(file["re_arcon"].toMap(), "enable", allowed > 0);
    constexpr int lead = 30 + 40;
    constexpr int attempt = lead + 300;
    constexpr int pause = 15 + 25;
    Bench bench;
    bench.start(file);
    bench.run(200);
    bench.world.strikes = false;
    if (!strikes) {
        QCOMPARE(bench.rest(), attempt * failures + pause * (failures - 1));
        QCOMPARE(bench.weld.phase(), Phase::PostFlow);
        QCOMPARE(bench.weld.trouble(), Trouble::NoArc);
        return;
    }
    bench.run((attempt + pause) * failures + lead);
    QCOMPARE(bench.weld.trouble(), Trouble::None);
    bench.world.strikes = true;
    bench.run(1 + 110);
    QVERIFY(isNear(bench.current(), 150 + 10 * failures));
    QVERIFY(isNear(bench.voltage(), 20 + 2 * failures));
    QVERIFY(bench.reach(Phase::Welding, 300));
}

void tst_WeldProcess::arcBreak_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<int>("out"); // ms
    QTest::addColumn<Phase>("phase");
    QTest::addColumn<Trouble>("trouble");
    QTest::addColumn<bool>("missing");
    QTest::addColumn<bool>("wantsReturn");
    for (const char *option : {"continue_running", "stop_and_alarm", "auto_arc_reignition"})
        QTest::newRow(qPrintable(QString("short, %1").arg(option)))
            << option << 250 << Phase::Welding << Trouble::None << false << false;
    QTest::newRow("run on") << "continue_running" << 251 << Phase::Welding << Trouble::None << true
                            << false;
    QTest::newRow("stop") << "stop_and_alarm" << 251 << Phase::PostFlow << Trouble::ArcLost << false
                          << false;
    QTest::newRow("reignite") << "auto_arc_reignition" << 251 << Phase::Ignition << Trouble::None
                              << false << true;
    QTest::newRow("unknown word") << "explode" << 251 << Phase::Welding << Trouble::None << true
                                  << false;
}

void tst_WeldProcess::arcBreak()
{
    QFETCH(QString, option);
    QFETCH(int, out);
    QFETCH(Phase, phase);
    QFETCH(Trouble, trouble);
    QFETCH(bool, missing);
    QFETCH(bool, wantsReturn);
    Bench bench;
    bench.start(arcOnFile(), weldFile(option.toLatin1()));
    QVERIFY(bench.reach(Phase::Welding));
    bench.run(500);
    bench.world.burns = false;
    bench.run(out);
    QCOMPARE(bench.current(), 0.0);
    QCOMPARE(bench.weld.phase(), phase);
    QCOMPARE(bench.weld.trouble(), trouble);
    QCOMPARE(bench.weld.isArcMissing(), missing);
    QCOMPARE(bench.weld.wantsReturn(), wantsReturn);
}

void tst_WeldProcess::missingArcComesBack()
{
    Bench bench;
    bench.start();
    QVERIFY(bench.reach(Phase::Welding));
    bench.world.burns = false;
    bench.run(1000);
    bench.world.burns = true;
    bench.run(401);
    QVERIFY(!bench.weld.isArcMissing());
    QVERIFY(isNear(bench.current(), 250));

    bench.world.burns = false;
    bench.run(1000);
    bench.weld.finish(ArcEnd::from(arcOffFile())); // no arc, no crater to fill
    QCOMPARE(bench.weld.phase(), Phase::PostFlow);
    QVERIFY(!bench.weld.isArcMissing());
}

void tst_WeldProcess::reignitesAfterTheReturn()
{
    Bench bench;
    bench.start(arcOnFile(), weldFile("auto_arc_reignition"));
    QCOMPARE(bench.weld.weld().backDistance, 8.0);
    QVERIFY(bench.reach(Phase::Welding));
    bench.world.burns = false;
    bench.run(2000);
    QVERIFY(bench.weld.wantsReturn()); // as long as it takes
    bench.world.burns = true;
    bench.weld.returned();
    QCOMPARE(bench.rest(), 30 + 40 + 1 + 120 + 150);
    QCOMPARE(bench.weld.phase(), Phase::Welding);

    bench.world.burns = false;
    bench.run(300);
    bench.weld.returned();
    QVERIFY(bench.reach(Phase::PostFlow, 2000)); // and it cannot be struck again
    QCOMPARE(bench.weld.trouble(), Trouble::NoArc);
}

void tst_WeldProcess::noGasEndsIt_data()
{
    QTest::addColumn<Phase>("phase");
    QTest::newRow("pre-flow") << Phase::PreFlow;
    QTest::newRow("ignition") << Phase::Ignition;
    QTest::newRow("welding") << Phase::Welding;
    QTest::newRow("crater") << Phase::Crater;
}

void tst_WeldProcess::noGasEndsIt()
{
    QFETCH(Phase, phase);
    Bench bench;
    bench.start();
    if (phase == Phase::Crater) {
        QVERIFY(bench.reach(Phase::Welding));
        bench.weld.finish(ArcEnd::from(arcOffFile()));
    }
    QVERIFY(bench.reach(phase));
    bench.run(10);
    bench.world.gas = false;
    bench.run(1);
    QCOMPARE(bench.weld.phase(), Phase::PostFlow);
    QCOMPARE(bench.weld.trouble(), Trouble::NoGas);
    QCOMPARE(bench.current(), 0.0);
    QVERIFY(bench.reach(Phase::Idle));
    QCOMPARE(bench.weld.trouble(), Trouble::NoGas);
    bench.start();
    QCOMPARE(bench.weld.trouble(), Trouble::None);
}

void tst_WeldProcess::wireSticks_data()
{
    QTest::addColumn<bool>("antiStick");
    QTest::addColumn<int>("crater");
    QTest::addColumn<Trouble>("trouble");
    QTest::newRow("nothing against it") << false << 600 + 70 << Trouble::WireSticks;
    QTest::newRow("anti-stick frees it") << true << 600 + 70 + 130 << Trouble::None;
}

void tst_WeldProcess::wireSticks()
{
    QFETCH(bool, antiStick);
    QFETCH(int, crater);
    QFETCH(Trouble, trouble);
    Bench bench;
    bench.world.wireSticks = true;
    bench.start();
    QVERIFY(bench.reach(Phase::Welding));
    bench.weld.finish(ArcEnd::from(arcOffFile(antiStick)));
    bench.run(600 + 69);
    QCOMPARE(bench.current(), 0.0);
    bench.run(1);
    QCOMPARE(bench.current(), antiStick ? 30.0 : 0.0);
    QCOMPARE(bench.voltage(), antiStick ? 10.0 : 0.0);
    QCOMPARE(bench.rest(), antiStick ? crater - 670 : 350);
    QCOMPARE(bench.weld.phase(), antiStick ? Phase::PostFlow : Phase::Idle);
    QCOMPARE(bench.weld.trouble(), trouble);
}

void tst_WeldProcess::trimming_data()
{
    QTest::addColumn<Phase>("phase");
    QTest::addColumn<int>("ramp");
    QTest::newRow("ignition") << Phase::Ignition << 100;
    QTest::newRow("welding") << Phase::Welding << 400;
    QTest::newRow("crater") << Phase::Crater << 400;
}

void tst_WeldProcess::trimming()
{
    QFETCH(Phase, phase);
    QFETCH(int, ramp);
    Bench bench;
    const QVariantMap change{{"current", 220.0},
                             {"voltage", 23.0},
                             {"voltage_mode", "separate"},
                             {"ramp_time", ramp},
                             {"hold_time", 5000}};
    bench.start(with(arcOnFile(), "hold_time", 5000));
    QVERIFY(bench.reach(phase == Phase::Crater ? Phase::Welding : phase));
    if (phase == Phase::Crater)
        bench.weld.finish(ArcEnd::from(with(arcOffFile(), "hold_time", 5000)));
    bench.run(1000);
    if (phase == Phase::Ignition)
        bench.weld.trim(ArcStart::from(change));
    else if (phase == Phase::Welding)
        bench.weld.trim(ArcWeld::from(change));
    else
        bench.weld.trim(ArcEnd::from(change));
    const double before = bench.current();
    bench.run(ramp / 2);
    QVERIFY(isNear(bench.current(), (before + 220) / 2));
    bench.run(ramp / 2);
    QVERIFY(isNear(bench.current(), 220) && isNear(bench.voltage(), 23));
    QCOMPARE(bench.weld.phase(), phase);
}

void tst_WeldProcess::interruptAndResume()
{
    Bench bench;
    bench.start();
    bench.weld.interrupt();
    QCOMPARE(bench.weld.phase(), Phase::PostFlow);
    bench.start();
    bench.speed = 10;
    QVERIFY(bench.reach(Phase::Welding));
    bench.run(2000);
    const double before = bench.weld.arc().distance();
    bench.weld.interrupt();
    QCOMPARE(bench.current(), 0.0);
    QCOMPARE(bench.rest(), 200); // gas as long as before the arc
    bench.weld.interrupt();
    QCOMPARE(bench.weld.phase(), Phase::Idle);
    bench.speed = 0;
    bench.weld.resume();
    QCOMPARE(bench.rest(), 200);
    QVERIFY(bench.reach(Phase::Welding));
    QCOMPARE(bench.weld.arc().distance(), before);
}

void tst_WeldProcess::haltIsAtOnce()
{
    Bench bench;
    bench.start();
    QVERIFY(bench.reach(Phase::Welding));
    bench.weld.halt();
    QCOMPARE(bench.weld.phase(), Phase::Idle);
    QCOMPARE(bench.voltage(), 0.0);
}

QTEST_GUILESS_MAIN(tst_WeldProcess)
#include "tst_weldprocess.moc"
