#include <QtTest>
#include <limits>

#include "controllerbench.h"
#include "support/rows.h"

using namespace welmo::controller;
using Fault = Faults::Fault;
using Event = Journal::Event;
using Kind = Request::Kind;
using Requests = testsupport::Rows<Kind, const char *, QString, QVariant, int>;

namespace {

constexpr auto Get = Kind::Get;
constexpr auto Set = Kind::Set;
constexpr auto Do = Kind::Command;
constexpr char setMode[] = "arc_weld.set_weld_mode";
constexpr char setWelder[] = "arc_weld.set_welder";
constexpr char welderState[] = "arc_weld.welder_state";
constexpr char anticollision[] = "arc_weld.set_anticollision";
constexpr char enable[] = "arc_weld.enable_weld_param";
constexpr char removeArcOn[] = "arc_weld.remove.arcon_param";
constexpr char wireFeed[] = "arc_weld.wire_feed";
constexpr char running[] = "arc_weld.running_param";
constexpr char arcOn[] = "arc_weld.arcon_param";
constexpr char weave[] = "arc_weld.weave_param";
constexpr char segment[] = "arc_weld.seg_param";
constexpr char project[] = "orbo.project";
constexpr char toolPage[] = "orbo.toolpage";
constexpr char file1[] = "arcondata1";

const QVariantMap collision{{"enable", true}, {"signal", "DI1_3"}, {"block", false}};
const QVariantMap run{{"test_run_speed", 200}, {"wire_feed_speed", 1.5}, {"gas_detect_time", 15}};
const QVariantMap real{{"mode", "real"}};

QVariant state(const char *word)
{
    return QVariantMap{{"state", word}};
}

QVariantMap named(const char *name, QVariantMap rest = {})
{
    rest.insert("name", name);
    return rest;
}

QVariantMap item(const char *name)
{
    return {{"id", name}, {"name", name}};
}

/// A bench with a file; what it stores can be compared as a whole.
struct Bench : ControllerBench
{
    Bench()
    {
        set(arcOn, file1, named(file1, {{"annotation", "before"}}));
        told.clear();
    }
    QVariantList everything()
    {
        QVariantList values;
        for (const QString &node : controller.nodes().keys())
            values.append(controller.handle({Kind::Get, node, {}, {}}).value);
        return values;
    }
};

void checkRefused(const Requests &requests)
{
    for (const auto &[name, kind, path, key, payload, code] : requests) {
        Bench bench;
        const QVariantList before = bench.everything();
        QCOMPARE(bench.controller.handle({kind, path, key, payload}).code, code);
        QCOMPARE(bench.everything(), before);
        QVERIFY(bench.told.isEmpty());
    }
}

} // namespace

/// What is refused has a code, changes nothing and is told to nobody; what is not is there and
/// told; and what the commands do beside.
class tst_Requests : public QObject
{
    Q_OBJECT
private slots:
    void commandsRefused()
    {
        const QVariantMap good = ControllerBench::welder("RP/RPH", 500, true);
        const QVariantMap data = named("arcdata7", {{"current", -1}});
        checkRefused({
            {"unknown", Do, "arc_weld.explode", "", {}, UnknownCommand},
            {"mode in another case", Do, setMode, "", with(real, "mode", "Real"), OutOfRange},
            {"no payload", Do, setMode, "", {}, BadPayload},
            {"current", Do, setWelder, "", with(good, "current_type", 400), OutOfRange},
            {"current as text", Do, setWelder, "", with(good, "current_type", "500"), BadPayload},
            {"no signal", Do, anticollision, "", without(collision, "signal"), BadPayload},
            {"arc start as weld data", Do, enable, "", named("arcondata7"), BadPayload},
            {"weld data", Do, enable, "", data, OutOfRange},
            {"wire, name", Do, wireFeed, "wire_feed", QVariantMap{{"feed", true}}, BadPayload},
            {"stranger", Do, removeArcOn, "", QStringList{file1, "arcdata1"}, UnknownKey},
            {"name alone", Do, removeArcOn, "", file1, BadPayload},
            {"set that keeps its files", Do, "arc_weld.remove.weave_param", "",
             QStringList{"weavedata1"}, UnknownCommand},
        });
    }
    void nodesRefused()
    {
        const QVariantList two{item("torch1"), item("torch2")};
        constexpr char rate[] = "arc_weld.welder_state_rate";
        checkRefused({
            {"unknown", Get, "arc_weld.explode", "", {}, UnknownNode},
            {"read only", Set, "cell.journal", "", real, ReadOnly},
            {"mode past its command", Set, "arc_weld.weld_mode", "", real, ReadOnly},
            {"one child", Set, running, "test_run_speed", run, UnknownKey},
            {"too slow", Set, running, "", with(run, "test_run_speed", 0), OutOfRange},
            {"too fast", Set, running, "", with(run, "test_run_speed", 251), OutOfRange},
            {"incomplete", Set, running, "", without(run, "gas_detect_time"), BadPayload},
            {"seldom", Set, rate, "", QVariantMap{{"rate", 9}}, OutOfRange},
            {"built-in list", Set, project, "tool.system_list", two, ReadOnly},
            {"unknown kind", Set, project, "gripper._list", two, UnknownKey},
            {"same id", Set, project, "tool._list", QVariantList{item("a"), item("a")}, BadPayload},
            {"no id", Set, project, "tool._list", QVariantList{named("a")}, BadPayload},
        });
    }
    void filesRefused()
    {
        const auto start = [](const char *key, const QVariant &value) {
            return named(file1, {{key, value}});
        };
        const auto dwell = [](const QVariant &times) {
            return named("weavedata1", {{"dwell_time", times}});
        };
        checkRefused({
            {"another set's", Set, arcOn, "arcdata3", named("arcdata3"), UnknownKey},
            {"after the last", Set, arcOn, "arcondata41", named("arcondata41"), UnknownKey},
            {"another spelling", Get, arcOn, "arcondata01", {}, UnknownKey},
            {"another name", Set, arcOn, "arcondata3", named("arcondata4"), BadPayload},
            {"text for number", Set, arcOn, file1, start("current", "180"), BadPayload},
            {"above", Set, arcOn, file1, start("current", 1e9), OutOfRange},
            {"no number", Set, arcOn, file1, start("current", qQNaN()), BadPayload},
            {"fraction", Set, arcOn, file1, start("hold_time", 300.5), BadPayload},
            {"huge for int", Set, arcOn, file1, start("hold_time", 1e300), OutOfRange},
            {"int for bool", Set, arcOn, file1, start("re_arcon", QVariantMap{{"enable", 1}}),
             BadPayload},
            {"for inner node", Set, arcOn, file1, start("re_arcon", 5), BadPayload},
            {"long text", Set, arcOn, file1, start("x", QString(1 << 20, 'x')), BadPayload},
            {"no JSON", Set, arcOn, file1, start("x", QByteArray("x")), BadPayload},
            {"two times", Set, weave, "weavedata1", dwell(QVariantList{0, 0}), BadPayload},
            {"one time", Set, weave, "weavedata1", dwell(5), BadPayload},
        });
    }
    void faultsRefuse()
    {
        const QVariantMap feed{{"feed", true}};
        const testsupport::Rows<Fault, const char *, const char *, QVariant, int> rows{
            {"feed", Fault::WelderError, wireFeed, "wire_feel", feed, WrongState},
            {"feed, stuck", Fault::WireStuck, wireFeed, "wire_feel", feed, WireStuck},
            {"gas, none there", Fault::NoGas, "arc_weld.gas_flow", "", {}, NoGas},
            {"weld data", Fault::WelderError, enable, "", named("arcdata8"), WrongState},
            {"mode", Fault::DiskFull, setMode, "", real, StorageFailed},
            {"removal", Fault::DiskFull, removeArcOn, "", QStringList{file1}, StorageFailed},
        };
        for (const auto &[name, fault, command, payloadName, payload, code] : rows) {
            Bench bench;
            const QVariantList before = bench.everything();
            bench.faults.set(fault, true);
            bench.controller.tick(); // which tells of the fault itself
            bench.told.clear();
            QCOMPARE(bench.run(command, payload, payloadName).code, code);
            QVERIFY(fault != Fault::DiskFull || bench.told.isEmpty());
            bench.faults.clear();
            QCOMPARE(bench.everything(), before);
            bench.live(0, {1});
            QVERIFY(bench.run(command, payload, payloadName).ok());
            QVERIFY(bench.everything() != before);
        }
    }
    void writesAreThereAndTold()
    {
        const auto start = [](const QVariantMap &rest) { return named(file1, rest); };
        const QVariantMap torch{{"enable", true}, {"signal", "DI1_4"}};
        const testsupport::Rows<const char *, QString, QVariant> rows{
            {"running", running, "", run},
            {"torch", "arc_weld.wire_clamping_torch_param", "", torch},
            {"tool", toolPage, "", QVariantMap{{"tool", "tool0"}, {"wobj", "fixture1"}}},
            {"list in the writer's order", project, "tool._list",
             QVariantList{item("z"), item("a")}},
            {"int for number", arcOn, file1, start({{"current", 180}})},
            {"unknown code", arcOn, file1, start({{"mode", "cold_arc"}})},
            {"unknown children", arcOn, file1,
             start({{"hot_start", QVariantMap{{"current", 250.5}, {"on", true}}},
                    {"re_arcon", QVariantMap{{"enable", true}, {"newer", "x"}}},
                    {"nothing", QVariant()}})},
            {"largest distance", segment, "segdata1",
             named("segdata1", {{"welded_distance", std::numeric_limits<double>::max()}})},
        };
        for (const auto &[name, path, key, payload] : rows) {
            Bench bench;
            QVERIFY(bench.set(path, key, payload).ok());
            QCOMPARE(bench.get(path, key).value, payload);
            QCOMPARE(bench.told.size(), 1);
            QVariant told = bench.lastTold(path);
            for (const QString &part : key.split('.', Qt::SkipEmptyParts))
                told = told.toMap().value(part);
            QCOMPARE(told, payload);
        }
    }
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
    void theShieldNeedsTheSensor()
    {
        constexpr char node[] = "arc_weld.anticollision_state";
        const testsupport::Rows<bool, bool, bool> rows{
            {"on", true, false, false},
            {"on and shielded", true, true, true},
            {"off takes the shield with it", false, true, false},
        };
        for (const auto &[name, on, block, blocked] : rows) {
            ControllerBench bench;
            const QVariantMap payload{{"enable", on}, {"signal", "DI1_3"}, {"block", block}};
            QVERIFY(bench.run(anticollision, payload).ok());
            const QVariant expected = QVariantMap{{"enable", on}, {"block", blocked}};
            QCOMPARE(bench.get(node).value, expected);
            QCOMPARE(bench.lastTold(node), expected);
        }
    }
    void gasFlowsForItsTime()
    {
        for (const Fault fault : {Fault::LinkDown, Fault::WelderError, Fault::NoGas}) {
            ControllerBench bench;
            QVERIFY(bench.set(running, {}, with(run, "gas_detect_time", 5)).ok());
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
        QVERIFY(!bench.get(project, "point._list").value.toList().isEmpty());
        QVERIFY(bench.set(project, "point._list", QVariantList()).ok());
        QVERIFY(bench.controller.start().ok());
        QCOMPARE(bench.get(project, "point._list").value, QVariant(QVariantList()));
        bench.faults.set(Fault::DiskFull, true);
        const auto empty = Store::inMemory();
        Controller other(*empty, bench.faults, bench.journal, [] { return qint64(0); });
        QCOMPARE(other.start().code, int(StorageFailed));
    }
};

QTEST_GUILESS_MAIN(tst_Requests)
#include "tst_requests.moc"
