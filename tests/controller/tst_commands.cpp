#include <QtTest>

#include "controllerbench.h"

using namespace controller;
using Fault = Faults::Fault;
using Event = Journal::Event;

namespace {

constexpr char setWelder[] = "arc_weld.set_welder";
constexpr char welderState[] = "arc_weld.welder_state";
constexpr char wireFeed[] = "arc_weld.wire_feed";

QVariantMap welder(const QString &model, int current, bool enable)
{
    return {{"enable", enable},       {"connect_to_welder", true},
            {"protocol", "Ethercat"}, {"mfr", "Aotai"},
            {"model", model},         {"current_type", current}};
}

QVariantMap without(QVariantMap map, const QString &key)
{
    map.remove(key);
    return map;
}

QVariantMap with(QVariantMap map, const QString &key, const QVariant &value)
{
    map[key] = value;
    return map;
}

QVariant feed(bool on)
{
    return QVariantMap{{"feed", on}};
}

QVariant reverse(bool on)
{
    return QVariantMap{{"reverse", on}};
}

} // namespace

/// Every command, carried out and refused; what it changes, and who is told.
class tst_Commands : public QObject
{
    Q_OBJECT
private slots:
    void unknownNames();
    void readOnlyNodes_data();
    void readOnlyNodes();
    void weldModes_data();
    void weldModes();
    void welderChoice_data();
    void welderChoice();
    void welderChoiceSetsStateAndModes();
    void welderErrorShowsAndPasses();
    void weldDataIsEnabled();
    void anticollision_data();
    void anticollision();
    void singleSets_data();
    void singleSets();
    void wireMovesWhileHeld();
    void wireCommands_data();
    void wireCommands();
    void wireStopsByItself_data();
    void wireStopsByItself();
    void gasFlowsForItsTime();
    void gasRefused_data();
    void gasRefused();
    void forcedCode();
    void fullDiskChangesNothing_data();
    void fullDiskChangesNothing();
};

void tst_Commands::unknownNames()
{
    ControllerBench bench;
    QCOMPARE(bench.run("arc_weld.explode").code, int(UnknownCommand));
    QCOMPARE(bench.get("arc_weld.explode").code, int(UnknownNode));
    QCOMPARE(bench.run("arc_weld.weld_mode").code, int(UnknownCommand));
    QCOMPARE(bench.get(setWelder).code, int(UnknownNode));
}

void tst_Commands::readOnlyNodes_data()
{
    QTest::addColumn<QString>("path");
    for (const char *path :
         {"arc_weld.weld_mode", "arc_weld.welder_state", "arc_weld.welder_setting",
          "arc_weld.device_param", "arc_weld.anticollision_state", "orbo.robot.io.signal_detail"})
        QTest::newRow(path) << path;
}

void tst_Commands::readOnlyNodes()
{
    QFETCH(QString, path);
    ControllerBench bench;
    const QVariant before = bench.get(path.toLatin1()).value;
    QVERIFY(before.isValid());
    QCOMPARE(bench.set(path.toLatin1(), {}, QVariantMap{{"mode", "real"}}).code, int(ReadOnly));
    QCOMPARE(bench.get(path.toLatin1()).value, before);
}

void tst_Commands::weldModes_data()
{
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<int>("code");
    for (const char *mode : {"test_run", "simu", "real"})
        QTest::newRow(mode) << QVariant(QVariantMap{{"mode", mode}}) << int(Ok);
    QTest::newRow("unknown") << QVariant(QVariantMap{{"mode", "Real"}}) << int(OutOfRange);
    QTest::newRow("number") << QVariant(QVariantMap{{"mode", 2}}) << int(BadPayload);
    QTest::newRow("no mode") << QVariant(QVariantMap{{"made", "real"}}) << int(BadPayload);
    QTest::newRow("plain text") << QVariant("real") << int(BadPayload);
    QTest::newRow("nothing") << QVariant() << int(BadPayload);
}

void tst_Commands::weldModes()
{
    QFETCH(QVariant, payload);
    QFETCH(int, code);
    ControllerBench bench;
    const QVariantMap start{{"mode", "test_run"}};
    QCOMPARE(bench.get("arc_weld.weld_mode").value, QVariant(start));
    QCOMPARE(bench.run("arc_weld.set_weld_mode", payload, "target_mode").code, code);
    QCOMPARE(bench.get("arc_weld.weld_mode").value, code == Ok ? payload : QVariant(start));
    QCOMPARE(bench.lastTold("arc_weld.weld_mode"), code == Ok ? payload : QVariant());
}

void tst_Commands::welderChoice_data()
{
    QTest::addColumn<QVariantMap>("payload");
    QTest::addColumn<int>("code");
    const QVariantMap good = welder("RP/RPH", 500, true);
    QTest::newRow("good") << good << int(Ok);
    for (const int current : {350, 630, 800})
        QTest::newRow(qPrintable(QString("%1 A").arg(current)))
            << welder("RL/RPL", current, false) << int(Ok);
    QTest::newRow("current not offered") << welder("RP/RPH", 400, true) << int(OutOfRange);
    QTest::newRow("unknown model") << welder("RX", 500, true) << int(OutOfRange);
    QTest::newRow("unknown maker") << with(good, "mfr", "Other") << int(OutOfRange);
    QTest::newRow("unknown protocol") << with(good, "protocol", "CAN") << int(OutOfRange);
    QTest::newRow("current as text") << with(good, "current_type", "500A") << int(BadPayload);
    QTest::newRow("enable as text") << with(good, "enable", "true") << int(BadPayload);
    for (const QString &key : good.keys())
        QTest::newRow(qPrintable("without " + key)) << without(good, key) << int(BadPayload);
}

void tst_Commands::welderChoice()
{
    QFETCH(QVariantMap, payload);
    QFETCH(int, code);
    ControllerBench bench;
    const QVariant before = bench.get("arc_weld.welder_setting").value;
    QCOMPARE(bench.run(setWelder, payload, "set_device_param").code, code);
    QCOMPARE(bench.get("arc_weld.welder_setting").value, code == Ok ? QVariant(payload) : before);
    QCOMPARE(bench.told.isEmpty(), code != Ok);
}

void tst_Commands::welderChoiceSetsStateAndModes()
{
    ControllerBench bench;
    QCOMPARE(bench.get(welderState, "state").value, QVariant("disabled"));
    QCOMPARE(bench.run(setWelder, welder("RP/RPH", 800, true)).code, int(Ok));
    QCOMPARE(bench.get(welderState, "state").value, QVariant("ok"));
    QCOMPARE(bench.lastTold(welderState), QVariant(QVariantMap{{"state", "ok"}}));
    const QVariantMap pulsed = bench.get("arc_weld.device_param").value.toMap();
    QVERIFY(pulsed.value("work_mode").toList().contains("Double Pulse"));
    QCOMPARE(bench.lastTold("arc_weld.device_param"), QVariant(pulsed));

    QCOMPARE(bench.run(setWelder, welder("RL/RPL", 350, false)).code, int(Ok));
    QCOMPARE(bench.get(welderState, "state").value, QVariant("disabled"));
    QCOMPARE(bench.lastTold(welderState), QVariant(QVariantMap{{"state", "disabled"}}));
    const QVariantMap plain = bench.get("arc_weld.device_param").value.toMap();
    QVERIFY(!plain.value("work_mode").toList().contains("Double Pulse"));
    for (const QString &ranges : {QString("voltage_range"), QString("arcoff_voltage_range")}) {
        const QVariantList small = plain.value(ranges).toMap().value("separate").toList();
        const QVariantList large = pulsed.value(ranges).toMap().value("separate").toList();
        QVERIFY(small.size() == 2 && small.at(0).toDouble() < small.at(1).toDouble());
        QVERIFY(small.at(1).toDouble() < large.at(1).toDouble());
    }
}

void tst_Commands::welderErrorShowsAndPasses()
{
    ControllerBench bench;
    QCOMPARE(bench.run(setWelder, welder("RL/RPL", 350, true)).code, int(Ok));
    bench.faults.set(Fault::WelderError, true);
    bench.controller.tick();
    QCOMPARE(bench.lastTold(welderState), QVariant(QVariantMap{{"state", "error"}}));
    QCOMPARE(bench.get(welderState, "state").value, QVariant("error"));
    bench.told.clear();
    bench.controller.tick();
    QVERIFY(bench.told.isEmpty());
    bench.faults.set(Fault::WelderError, false);
    bench.controller.tick();
    QCOMPARE(bench.lastTold(welderState), QVariant(QVariantMap{{"state", "ok"}}));
}

void tst_Commands::weldDataIsEnabled()
{
    ControllerBench bench;
    constexpr char enable[] = "arc_weld.enable_weld_param";
    const QVariantMap data{{"name", "arcdata7"}, {"current", 210.0}};
    QCOMPARE(bench.get(welderState, "welding_name").value, QVariant(QString("")));
    QCOMPARE(bench.run(enable, QVariantMap{{"name", "arcondata7"}}).code, int(BadPayload));
    QCOMPARE(bench.run(enable, with(data, "current", -1)).code, int(OutOfRange));
    QCOMPARE(bench.get(welderState, "welding_name").value, QVariant(QString("")));

    QCOMPARE(bench.run(enable, data).code, int(Ok));
    QCOMPARE(bench.get(welderState, "welding_name").value, QVariant("arcdata7"));
    QCOMPARE(bench.lastTold(welderState), QVariant(QVariantMap{{"welding_name", "arcdata7"}}));
    QVERIFY(!bench.get("arc_weld.weld_param", "arcdata7").value.isValid());
    bench.faults.set(Fault::WelderError, true);
    QCOMPARE(bench.run(enable, with(data, "name", "arcdata8")).code, int(WrongState));
    QCOMPARE(bench.get(welderState, "welding_name").value, QVariant("arcdata7"));
}

void tst_Commands::anticollision_data()
{
    QTest::addColumn<QVariantMap>("payload");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("blocked");
    const QVariantMap on{{"enable", true}, {"signal", "DI1_3"}, {"block", false}};
    QTest::newRow("on") << on << int(Ok) << true << false;
    QTest::newRow("on and shielded") << with(on, "block", true) << int(Ok) << true << true;
    QTest::newRow("off takes the shield with it")
        << with(with(on, "block", true), "enable", false) << int(Ok) << false << false;
    QTest::newRow("translated text for no signal")
        << with(on, "signal", QString::fromUtf8("无信号")) << int(Ok) << true << false;
    QTest::newRow("signal as number") << with(on, "signal", 3) << int(BadPayload) << false << false;
    QTest::newRow("no signal") << without(on, "signal") << int(BadPayload) << false << false;
}

void tst_Commands::anticollision()
{
    QFETCH(QVariantMap, payload);
    QFETCH(int, code);
    QFETCH(bool, enabled);
    QFETCH(bool, blocked);
    ControllerBench bench;
    constexpr char param[] = "arc_weld.anticollision_param";
    constexpr char state[] = "arc_weld.anticollision_state";
    QVERIFY(!bench.get(param).value.isValid());
    QCOMPARE(bench.run("arc_weld.set_anticollision", payload).code, code);
    const QVariant expected = QVariantMap{{"enable", enabled}, {"block", blocked}};
    QCOMPARE(bench.get(state).value, expected);
    QCOMPARE(bench.lastTold(state), code == Ok ? expected : QVariant());
    QCOMPARE(bench.get(param, "signal").value, code == Ok ? payload.value("signal") : QVariant());
}

void tst_Commands::singleSets_data()
{
    QTest::addColumn<QString>("command"); // empty: written
    QTest::addColumn<QString>("path");
    QTest::addColumn<QVariantMap>("payload");
    QTest::addColumn<int>("code");
    const QString running = "arc_weld.running_param";
    const QVariantMap good{
        {"test_run_speed", 200}, {"wire_feed_speed", 1.5}, {"gas_detect_time", 15}};
    const QString torch = "arc_weld.wire_clamping_torch_param";
    const QString setTorch = "arc_weld.set_wire_clamping_torch_mode";
    const QVariantMap open{{"enable", true}, {"signal", "DI1_4"}};
    QTest::newRow("running") << "" << running << good << int(Ok);
    QTest::newRow("too slow") << "" << running << with(good, "test_run_speed", 0)
                              << int(OutOfRange);
    QTest::newRow("too fast") << "" << running << with(good, "test_run_speed", 251)
                              << int(OutOfRange);
    QTest::newRow("slow wire") << "" << running << with(good, "wire_feed_speed", 0.9)
                               << int(OutOfRange);
    QTest::newRow("fast wire") << "" << running << with(good, "wire_feed_speed", 21.1)
                               << int(OutOfRange);
    QTest::newRow("short gas") << "" << running << with(good, "gas_detect_time", 0)
                               << int(OutOfRange);
    QTest::newRow("long gas") << "" << running << with(good, "gas_detect_time", 31)
                              << int(OutOfRange);
    QTest::newRow("incomplete") << "" << running << without(good, "gas_detect_time")
                                << int(BadPayload);
    QTest::newRow("torch by command") << setTorch << torch << open << int(Ok);
    QTest::newRow("torch written") << "" << torch << open << int(Ok);
    QTest::newRow("torch without signal")
        << setTorch << torch << without(open, "signal") << int(BadPayload);
    QTest::newRow("torch, text for a bool")
        << setTorch << torch << with(open, "enable", "Open") << int(BadPayload);
}

void tst_Commands::singleSets()
{
    QFETCH(QString, command);
    QFETCH(QString, path);
    QFETCH(QVariantMap, payload);
    QFETCH(int, code);
    ControllerBench bench;
    const QByteArray node = path.toLatin1();
    QCOMPARE(bench.get(node).code, int(Ok));
    QVERIFY(!bench.get(node).value.isValid());
    const Reply reply =
        command.isEmpty() ? bench.set(node, {}, payload) : bench.run(command.toLatin1(), payload);
    QCOMPARE(reply.code, code);
    QCOMPARE(bench.get(node).value, code == Ok ? QVariant(payload) : QVariant());
    QCOMPARE(bench.lastTold(node), code == Ok ? QVariant(payload) : QVariant());
}

void tst_Commands::wireMovesWhileHeld()
{
    ControllerBench bench;
    bench.live(0, 1);
    QCOMPARE(bench.run(wireFeed, feed(true), "wire_feel").code, int(Ok));
    QCOMPARE(bench.run(wireFeed, feed(true), "wire_feel").code, int(Ok)); // a repeated request
    QCOMPARE(bench.run(wireFeed, reverse(true), "wire_feel_back").code, int(WrongState));
    QCOMPARE(bench.run(wireFeed, reverse(false), "wire_feel_back").code, int(Ok));
    QCOMPARE(bench.events(), QVector<Event>{Event::WireFeeds});
    bench.live(700, 1);
    QCOMPARE(bench.run(wireFeed, feed(false), "wire_feel").code, int(Ok));
    bench.live(0, 2);
    QCOMPARE(bench.run(wireFeed, reverse(true), "wire_feel_back").code, int(Ok));
    QCOMPARE(bench.run(wireFeed, reverse(false), "wire_feel_back").code, int(Ok));
    QCOMPARE(bench.events(),
             (QVector<Event>{Event::WireFeeds, Event::WireStops, Event::WireRetracts,
                             Event::WireStops}));
    QCOMPARE(bench.journal.entries().at(1).time - bench.journal.entries().at(0).time, 700);
}

void tst_Commands::wireCommands_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<int>("fault"); // -1: none
    QTest::addColumn<int>("code");
    const int error = int(Fault::WelderError);
    const int stuck = int(Fault::WireStuck);
    QTest::newRow("other name") << "wire_feed" << feed(true) << -1 << int(BadPayload);
    QTest::newRow("other child") << "wire_feel" << reverse(true) << -1 << int(BadPayload);
    QTest::newRow("other type") << "wire_feel" << QVariant(QVariantMap{{"feed", 1}}) << -1
                                << int(BadPayload);
    QTest::newRow("nothing") << "wire_feel" << QVariant() << -1 << int(BadPayload);
    QTest::newRow("feed, welder error") << "wire_feel" << feed(true) << error << int(WrongState);
    QTest::newRow("reverse, welder error")
        << "wire_feel_back" << reverse(true) << error << int(WrongState);
    QTest::newRow("stop, welder error") << "wire_feel" << feed(false) << error << int(Ok);
    QTest::newRow("feed, stuck") << "wire_feel" << feed(true) << stuck << int(WireStuck);
}

void tst_Commands::wireCommands()
{
    QFETCH(QString, name);
    QFETCH(QVariant, payload);
    QFETCH(int, fault);
    QFETCH(int, code);
    ControllerBench bench;
    if (fault >= 0)
        bench.faults.set(Fault(fault), true);
    QCOMPARE(bench.run(wireFeed, payload, name.toLatin1()).code, code);
    QVERIFY(bench.events().isEmpty());
}

void tst_Commands::wireStopsByItself_data()
{
    QTest::addColumn<int>("fault");
    QTest::newRow("welder error") << int(Fault::WelderError);
    QTest::newRow("wire stuck") << int(Fault::WireStuck);
}

void tst_Commands::wireStopsByItself()
{
    QFETCH(int, fault);
    ControllerBench bench;
    bench.live(0, 1);
    QCOMPARE(bench.run(wireFeed, feed(true), "wire_feel").code, int(Ok));
    bench.faults.set(Fault(fault), true);
    bench.controller.tick();
    QCOMPARE(bench.events().last(), Event::WireStops);
    bench.faults.clear();
    bench.controller.tick();
    QCOMPARE(bench.events().size(), 2); // it takes a fresh press
}

void tst_Commands::gasFlowsForItsTime()
{
    ControllerBench bench;
    QCOMPARE(bench
                 .set("arc_weld.running_param", {},
                      QVariantMap{
                          {"test_run_speed", 200}, {"wire_feed_speed", 1}, {"gas_detect_time", 5}})
                 .code,
             int(Ok));
    QVERIFY(!bench.controller.isBusy());
    QCOMPARE(bench.run("arc_weld.gas_flow").code, int(Ok));
    QVERIFY(bench.controller.isBusy());
    bench.now += 4999;
    bench.controller.tick();
    QCOMPARE(bench.events(), QVector<Event>{Event::GasFlows});
    bench.now += 1;
    bench.controller.tick();
    QCOMPARE(bench.events(), (QVector<Event>{Event::GasFlows, Event::GasStops}));
    QVERIFY(!bench.controller.isBusy());
}

void tst_Commands::gasRefused_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<int>("code");
    QTest::newRow("welder error") << int(Fault::WelderError) << int(WrongState);
    QTest::newRow("no gas") << int(Fault::NoGas) << int(NoGas);
}

void tst_Commands::gasRefused()
{
    QFETCH(int, fault);
    QFETCH(int, code);
    ControllerBench bench;
    bench.faults.set(Fault(fault), true);
    QCOMPARE(bench.run("arc_weld.gas_flow").code, code);
    QVERIFY(bench.events().isEmpty());
    bench.faults.clear();
    QCOMPARE(bench.run("arc_weld.gas_flow").code, int(Ok));
    bench.faults.set(Fault(fault), true);
    bench.controller.tick();
    QCOMPARE(bench.events().last(), Event::GasStops);
}

void tst_Commands::forcedCode()
{
    ControllerBench bench;
    const QVariantMap real{{"mode", "real"}};
    bench.faults.setCode("arc_weld.set_weld_mode", 77, 2);
    QCOMPARE(bench.run("arc_weld.set_weld_mode", real).code, 77);
    QCOMPARE(bench.get("arc_weld.weld_mode", "mode").value, QVariant("test_run"));
    QCOMPARE(bench.run("arc_weld.set_weld_mode", real).code, 77);
    QCOMPARE(bench.run("arc_weld.set_weld_mode", real).code, int(Ok));
    bench.faults.setCode("arc_weld.weld_mode", 78);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(bench.get("arc_weld.weld_mode").code, 78);
    bench.faults.setCode("arc_weld.weld_mode", 0);
    QCOMPARE(bench.get("arc_weld.weld_mode", "mode").value, QVariant("real"));
}

void tst_Commands::fullDiskChangesNothing_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<QString>("node");
    QTest::newRow("mode") << "arc_weld.set_weld_mode" << QVariant(QVariantMap{{"mode", "real"}})
                          << "arc_weld.weld_mode";
    QTest::newRow("welder") << setWelder << QVariant(welder("RP/RPH", 500, true)) << welderState;
    QTest::newRow("anti-collision")
        << "arc_weld.set_anticollision"
        << QVariant(QVariantMap{{"enable", true}, {"signal", "DI1_3"}, {"block", false}})
        << "arc_weld.anticollision_state";
    QTest::newRow("removal") << "arc_weld.remove.arcon_param" << QVariant(QStringList{"arcondata1"})
                             << "arc_weld.arcon_param";
}

void tst_Commands::fullDiskChangesNothing()
{
    QFETCH(QString, command);
    QFETCH(QVariant, payload);
    QFETCH(QString, node);
    ControllerBench bench;
    bench.set("arc_weld.arcon_param", "arcondata1", QVariantMap{{"name", "arcondata1"}});
    bench.told.clear();
    const QVariant before = bench.get(node.toLatin1()).value;
    bench.faults.set(Fault::DiskFull, true);
    QCOMPARE(bench.run(command.toLatin1(), payload).code, int(StorageFailed));
    QVERIFY(bench.told.isEmpty());
    QCOMPARE(bench.get(node.toLatin1()).value, before);
    bench.faults.clear();
    QCOMPARE(bench.run(command.toLatin1(), payload).code, int(Ok));
    QVERIFY(bench.get(node.toLatin1()).value != before);
}

QTEST_GUILESS_MAIN(tst_Commands)
#include "tst_commands.moc"
