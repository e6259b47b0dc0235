#include <QtTest>

#include "controllerbench.h"
#include "support/rows.h"

using namespace controller;
using Fault = Faults::Fault;
using Event = Journal::Event;
using testsupport::Rows;

namespace {

constexpr char setWelder[] = "arc_weld.set_welder";
constexpr char welderState[] = "arc_weld.welder_state";
constexpr char points[] = "point._list";

QVariant state(const char *word)
{
    return QVariantMap{{"state", word}};
}

} // namespace

/// What the commands do, and who is told.
class tst_Commands : public QObject
{
    Q_OBJECT
private slots:
    void welderChoiceSetsStateAndModes()
    {
        ControllerBench bench;
        QVector<double> most;
        for (const bool pulsed : {true, false}) {
            const QVariantMap choice =
                ControllerBench::welder(pulsed ? "RP/RPH" : "RL/RPL", pulsed ? 800 : 350, pulsed);
            QVERIFY(bench.run(setWelder, choice, "set_device_param").ok());
            QCOMPARE(bench.get("arc_weld.welder_setting").value, QVariant(choice));
            QCOMPARE(bench.lastTold(welderState), state(pulsed ? "ok" : "disabled"));
            const QVariantMap device = bench.get("arc_weld.device_param").value.toMap();
            QCOMPARE(bench.lastTold("arc_weld.device_param"), QVariant(device));
            QCOMPARE(device.value("work_mode").toList().contains("Double Pulse"), pulsed);
            for (const char *range : {"voltage_range", "arcoff_voltage_range"})
                most.append(device[range].toMap()["separate"].toList().at(1).toDouble());
        }
        QVERIFY(most.at(2) < most.at(0) && most.at(3) < most.at(1)); // the smaller welder
        for (const int current : {350, 500, 630, 800})
            QVERIFY(bench.run(setWelder, ControllerBench::welder("RP/RPH", current, true)).ok());
    }
    void welderErrorShowsAndPasses()
    {
        ControllerBench bench;
        QCOMPARE(bench.get(welderState, "state").value, QVariant("disabled"));
        bench.run(setWelder, ControllerBench::welder("RL/RPL", 350, true));
        bench.faults.set(Fault::WelderError, true);
        bench.controller.tick();
        QCOMPARE(bench.lastTold(welderState), state("error"));
        QCOMPARE(bench.get(welderState, "state").value, QVariant("error"));
        bench.told.clear();
        bench.controller.tick();
        QVERIFY(bench.told.isEmpty());
        bench.faults.set(Fault::WelderError, false);
        bench.controller.tick();
        QCOMPARE(bench.lastTold(welderState), state("ok"));
    }
    void anticollision()
    {
        constexpr char state[] = "arc_weld.anticollision_state";
        const Rows<bool, bool, bool> rows{
            {"on", true, false, false},
            {"on and shielded", true, true, true},
            {"off takes the shield with it", false, true, false},
        };
        for (const auto &[name, on, block, blocked] : rows) {
            ControllerBench bench;
            const QVariantMap payload{{"enable", on}, {"signal", "DI1_3"}, {"block", block}};
            QVERIFY(bench.run("arc_weld.set_anticollision", payload).ok());
            const QVariant expected = QVariantMap{{"enable", on}, {"block", blocked}};
            QCOMPARE(bench.get(state).value, expected);
            QCOMPARE(bench.lastTold(state), expected);
        }
    }
    void gasFlowsForItsTime()
    {
        const QVariantMap running{
            {"test_run_speed", 200}, {"wire_feed_speed", 1}, {"gas_detect_time", 5}};
        for (const Fault fault : {Fault::LinkDown, Fault::WelderError, Fault::NoGas}) {
            ControllerBench bench;
            QVERIFY(bench.set("arc_weld.running_param", {}, running).ok());
            QVERIFY(bench.run("arc_weld.gas_flow").ok());
            bench.now += fault == Fault::LinkDown ? 4999 : 1000; // which does not end it
            bench.controller.tick();
            QCOMPARE(bench.events(), QVector<Event>{Event::GasFlows});
            bench.faults.set(fault, true);
            bench.now += 1;
            bench.controller.tick();
            QCOMPARE(bench.events(), (QVector<Event>{Event::GasFlows, Event::GasStops}));
            QVERIFY(!bench.controller.isBusy());
        }
    }
    void startKeepsWhatIsThere()
    {
        ControllerBench bench;
        QVERIFY(!bench.get("orbo.project", points).value.toList().isEmpty());
        QVERIFY(bench.set("orbo.project", points, QVariantList()).ok());
        QVERIFY(bench.controller.start().ok());
        QCOMPARE(bench.get("orbo.project", points).value, QVariant(QVariantList()));
        bench.faults.set(Fault::DiskFull, true);
        const auto empty = Store::inMemory();
        Controller other(*empty, bench.faults, bench.journal, [] { return qint64(0); });
        QCOMPARE(other.start().code, int(StorageFailed));
    }
};

QTEST_GUILESS_MAIN(tst_Commands)
#include "tst_commands.moc"
