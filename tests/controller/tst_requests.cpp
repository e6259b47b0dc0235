#include <QTemporaryDir>
#include <QtTest>
#include <limits>

#include "controllerbench.h"
#include "sql.h"
#include "support/rows.h"

using namespace controller;
using Fault = Faults::Fault;
using Kind = Request::Kind;
using Requests = testsupport::Rows<Kind, const char *, QString, QVariant, int>;

namespace {

constexpr auto Read = Kind::Get;
constexpr auto Write = Kind::Set;
constexpr auto Do = Kind::Command;
constexpr char setMode[] = "arc_weld.set_weld_mode";
constexpr char setWelder[] = "arc_weld.set_welder";
constexpr char anticollision[] = "arc_weld.set_anticollision";
constexpr char setTorch[] = "arc_weld.set_wire_clamping_torch_mode";
constexpr char enable[] = "arc_weld.enable_weld_param";
constexpr char wireFeed[] = "arc_weld.wire_feed";
constexpr char running[] = "arc_weld.running_param";
constexpr char arcOn[] = "arc_weld.arcon_param";
constexpr char weld[] = "arc_weld.weld_param";
constexpr char weave[] = "arc_weld.weave_param";
constexpr char segment[] = "arc_weld.seg_param";
constexpr char project[] = "orbo.project";
constexpr char toolPage[] = "orbo.toolpage";

const QVariantMap collision{{"enable", true}, {"signal", "DI1_3"}, {"block", false}};
const QVariantMap run{{"test_run_speed", 200}, {"wire_feed_speed", 1.5}, {"gas_detect_time", 15}};
const QVariantMap torch{{"enable", true}, {"signal", "DI1_4"}};
const QVariantMap real{{"mode", "real"}};

QVariantMap named(const char *name, QVariantMap rest = {})
{
    rest.insert("name", name);
    return rest;
}

QVariantMap item(const char *name)
{
    return {{"id", name}, {"name", name}};
}

/// A bench with some files; what it stores can be compared as a whole.
struct Bench : ControllerBench
{
    Bench()
    {
        set(arcOn, "arcondata1", named("arcondata1", {{"annotation", "before"}}));
        set(weld, "arcdata1", named("arcdata1", {{"annotation", "before"}}));
        set(weave, "weavedata1", named("weavedata1", {{"annotation", "before"}}));
        told.clear();
    }
    QVariantList everything()
    {
        QVariantList values;
        for (const char *node :
             {"arc_weld.weld_mode", "arc_weld.welder_setting", "arc_weld.welder_state",
              "arc_weld.device_param", "arc_weld.anticollision_param",
              "arc_weld.anticollision_state", "arc_weld.wire_clamping_torch_param",
              "arc_weld.welder_state_rate", "orbo.robot.io.signal_detail", "cell.journal", running,
              arcOn, weld, weave, segment, project, toolPage})
            values.append(get(node).value);
        return values;
    }
};

void checkRefused(const Requests &requests)
{
    for (const auto &[name, kind, path, key, payload, code] : requests) {
        Bench bench;
        const QVariantList before = bench.everything();
        QVERIFY(code != Ok);
        QCOMPARE(bench.controller.handle({kind, path, key, payload}).code, code);
        QCOMPARE(bench.everything(), before);
        QVERIFY(bench.told.isEmpty());
    }
}

} // namespace

/// What is refused has a code, changes nothing and is told to nobody; what is not is there and
/// told.
class tst_Requests : public QObject
{
    Q_OBJECT
private slots:
    void commandsRefused()
    {
        const QVariantMap good = ControllerBench::welder("RP/RPH", 500, true);
        const QVariantMap data = named("arcdata7", {{"current", 210.0}});
        Requests rows{
            {"unknown", Do, "arc_weld.explode", "", {}, UnknownCommand},
            {"a node as a command", Do, "arc_weld.weld_mode", "", {}, UnknownCommand},
            {"mode in another case", Do, setMode, "", with(real, "mode", "Real"), OutOfRange},
            {"mode as number", Do, setMode, "", with(real, "mode", 2), BadPayload},
            {"no mode", Do, setMode, "", QVariantMap{{"made", "real"}}, BadPayload},
            {"mode as plain text", Do, setMode, "", "real", BadPayload},
            {"no payload", Do, setMode, "", {}, BadPayload},
            {"current", Do, setWelder, "", with(good, "current_type", 400), OutOfRange},
            {"model", Do, setWelder, "", with(good, "model", "RX"), OutOfRange},
            {"maker", Do, setWelder, "", with(good, "mfr", "Other"), OutOfRange},
            {"protocol", Do, setWelder, "", with(good, "protocol", "CAN"), OutOfRange},
            {"current as text", Do, setWelder, "", with(good, "current_type", "500"), BadPayload},
            {"enable as text", Do, setWelder, "", with(good, "enable", "true"), BadPayload},
            {"signal number", Do, anticollision, "", with(collision, "signal", 3), BadPayload},
            {"no signal", Do, anticollision, "", without(collision, "signal"), BadPayload},
            {"torch, no signal", Do, setTorch, "", without(torch, "signal"), BadPayload},
            {"torch as text", Do, setTorch, "", with(torch, "enable", "Open"), BadPayload},
            {"arc start as weld data", Do, enable, "", named("arcondata7"), BadPayload},
            {"weld data", Do, enable, "", with(data, "current", -1), OutOfRange},
            {"wire, name", Do, wireFeed, "wire_feed", QVariantMap{{"feed", true}}, BadPayload},
            {"wire, child", Do, wireFeed, "wire_feel", QVariantMap{{"reverse", true}}, BadPayload},
            {"wire, type", Do, wireFeed, "wire_feel", QVariantMap{{"feed", 1}}, BadPayload},
            {"wire, nothing", Do, wireFeed, "wire_feel", {}, BadPayload},
            {"stranger", Do, "arc_weld.remove.arcon_param", "",
             QStringList{"arcondata1", "arcdata1"}, UnknownKey},
            {"name alone", Do, "arc_weld.remove.arcon_param", "", "arcondata1", BadPayload},
            {"remove nothing", Do, "arc_weld.remove.arcon_param", "", {}, BadPayload},
            {"set that keeps its files", Do, "arc_weld.remove.weave_param", "",
             QStringList{"weavedata1"}, UnknownCommand},
        };
        for (const QString &key : good.keys())
            rows.add(
                {"without " + key.toUtf8(), Do, setWelder, "", without(good, key), BadPayload});
        checkRefused(rows);
    }
    void nodesRefused()
    {
        const QVariantList two{item("torch1"), item("torch2")};
        constexpr char rate[] = "arc_weld.welder_state_rate";
        Requests rows{
            {"unknown", Read, "arc_weld.explode", "", {}, UnknownNode},
            {"a command as a node", Read, setWelder, "", {}, UnknownNode},
            {"too slow", Write, running, "", with(run, "test_run_speed", 0), OutOfRange},
            {"too fast", Write, running, "", with(run, "test_run_speed", 251), OutOfRange},
            {"slow wire", Write, running, "", with(run, "wire_feed_speed", 0.9), OutOfRange},
            {"fast wire", Write, running, "", with(run, "wire_feed_speed", 21.1), OutOfRange},
            {"short gas", Write, running, "", with(run, "gas_detect_time", 0), OutOfRange},
            {"long gas", Write, running, "", with(run, "gas_detect_time", 31), OutOfRange},
            {"incomplete", Write, running, "", without(run, "gas_detect_time"), BadPayload},
            {"seldom", Write, rate, "", QVariantMap{{"rate", 9}}, OutOfRange},
            {"often", Write, rate, "", QVariantMap{{"rate", 501}}, OutOfRange},
            {"rate as text", Write, rate, "", QVariantMap{{"rate", "60"}}, BadPayload},
            {"no such tool", Write, toolPage, "",
             QVariantMap{{"tool", "torch9"}, {"wobj", "wobj0"}}, OutOfRange},
            {"tool alone", Write, toolPage, "", QVariantMap{{"tool", "tool0"}}, BadPayload},
            {"built-in list", Write, project, "tool.system_list", two, ReadOnly},
            {"unknown kind", Write, project, "gripper._list", two, UnknownKey},
            {"unknown list", Write, project, "tool.my_list", two, UnknownKey},
            {"no list", Write, project, "", two, UnknownKey},
            {"map", Write, project, "tool._list", item("torch2"), BadPayload},
            {"same id", Write, project, "tool._list", QVariantList{item("a"), item("a")},
             BadPayload},
            {"no id", Write, project, "tool._list", QVariantList{named("a")}, BadPayload},
            {"no maps", Write, project, "tool._list", QVariantList{"torch2"}, BadPayload},
        };
        for (const char *node :
             {"arc_weld.weld_mode", "arc_weld.welder_state", "arc_weld.welder_setting",
              "arc_weld.device_param", "arc_weld.anticollision_state",
              "orbo.robot.io.signal_detail", "cell.journal"})
            rows.add({node, Write, node, "", real, ReadOnly});
        checkRefused(rows);
    }
    void filesRefused()
    {
        const auto start = [](const char *key, const QVariant &value) {
            return named("arcondata1", {{key, value}});
        };
        const QVariantMap dwell{{"name", "weavedata1"}};
        constexpr double infinity = std::numeric_limits<double>::infinity();
        checkRefused({
            {"unknown set", Write, "arc_weld.gas_param", "gas1", named("gas1"), UnknownNode},
            {"empty set", Write, "arc_weld.", "arcondata3", named("arcondata3"), UnknownNode},
            {"another set's", Write, arcOn, "arcdata3", named("arcdata3"), UnknownKey},
            {"after the last", Write, arcOn, "arcondata41", named("arcondata41"), UnknownKey},
            {"before the first", Read, arcOn, "arcondata0", {}, UnknownKey},
            {"another spelling", Read, arcOn, "arcondata01", {}, UnknownKey},
            {"no key", Write, arcOn, "", named("arcondata3"), UnknownKey},
            {"another name", Write, arcOn, "arcondata3", named("arcondata4"), BadPayload},
            {"default's name", Write, arcOn, "arcondata3", named("default"), BadPayload},
            {"no name", Write, arcOn, "arcondata3", QVariantMap{{"current", 1}}, BadPayload},
            {"no children", Write, arcOn, "arcondata3", "arcondata3", BadPayload},
            {"nothing", Write, arcOn, "arcondata3", {}, BadPayload},
            {"text for number", Write, arcOn, "arcondata1", start("current", "180"), BadPayload},
            {"bool for number", Write, arcOn, "arcondata1", start("current", true), BadPayload},
            {"below", Write, arcOn, "arcondata1", start("current", -0.1), OutOfRange},
            {"above", Write, arcOn, "arcondata1", start("current", 1e9), OutOfRange},
            {"no number", Write, arcOn, "arcondata1", start("current", qQNaN()), BadPayload},
            {"infinite", Write, arcOn, "arcondata1", start("current", infinity), BadPayload},
            {"fraction", Write, arcOn, "arcondata1", start("hold_time", 300.5), BadPayload},
            {"huge for int", Write, arcOn, "arcondata1", start("hold_time", 1e300), OutOfRange},
            {"text for bool", Write, arcOn, "arcondata1",
             start("re_arcon", QVariantMap{{"enable", "true"}}), BadPayload},
            {"int for bool", Write, arcOn, "arcondata1",
             start("re_arcon", QVariantMap{{"enable", 1}}), BadPayload},
            {"for inner node", Write, arcOn, "arcondata1", start("re_arcon", 5), BadPayload},
            {"number for code", Write, arcOn, "arcondata1", start("mode", 1), BadPayload},
            {"number for text", Write, arcOn, "arcondata1", start("annotation", 1), BadPayload},
            {"unknown child", Write, arcOn, "arcondata1", start("extra", QByteArray("x")),
             BadPayload},
            {"inner code", Write, weld, "arcdata1",
             named("arcdata1", {{"arc_break_param", QVariantMap{{"arc_break_option", 1}}}}),
             BadPayload},
            {"two times", Write, weave, "weavedata1", with(dwell, "dwell_time", QVariantList{0, 0}),
             BadPayload},
            {"fraction among times", Write, weave, "weavedata1",
             with(dwell, "dwell_time", QVariantList{0, 0.5, 0}), BadPayload},
            {"text among times", Write, weave, "weavedata1",
             with(dwell, "dwell_time", QVariantList{0, "1", 0}), BadPayload},
            {"one time", Write, weave, "weavedata1", with(dwell, "dwell_time", 5), BadPayload},
        });
    }
    void faultsRefuse()
    {
        const QVariantMap feed{{"feed", true}};
        const QVariantMap back{{"reverse", true}};
        const QVariantMap data = named("arcdata8");
        const testsupport::Rows<Fault, const char *, const char *, QVariant, int> rows{
            {"feed, welder error", Fault::WelderError, wireFeed, "wire_feel", feed, WrongState},
            {"back, welder error", Fault::WelderError, wireFeed, "wire_feel_back", back,
             WrongState},
            {"feed, stuck", Fault::WireStuck, wireFeed, "wire_feel", feed, WireStuck},
            {"gas, welder error", Fault::WelderError, "arc_weld.gas_flow", "", {}, WrongState},
            {"gas, none there", Fault::NoGas, "arc_weld.gas_flow", "", {}, NoGas},
            {"weld data, welder error", Fault::WelderError, enable, "", data, WrongState},
            {"mode, disk full", Fault::DiskFull, setMode, "", real, StorageFailed},
            {"welder, disk full", Fault::DiskFull, setWelder, "",
             ControllerBench::welder("RP/RPH", 500, true), StorageFailed},
            {"anti-collision, disk full", Fault::DiskFull, anticollision, "", collision,
             StorageFailed},
            {"removal, disk full", Fault::DiskFull, "arc_weld.remove.arcon_param", "",
             QStringList{"arcondata1"}, StorageFailed},
        };
        for (const auto &[name, fault, command, payloadName, payload, code] : rows) {
            Bench bench;
            const QVariantList before = bench.everything();
            bench.faults.set(fault, true);
            QCOMPARE(bench.run(command, payload, payloadName).code, code);
            QVERIFY(fault != Fault::DiskFull || bench.told.isEmpty());
            bench.faults.clear();
            QCOMPARE(bench.everything(), before);
            bench.live(0, 1);
            QVERIFY(bench.run(command, payload, payloadName).ok());
            QVERIFY(bench.everything() != before);
        }
    }
    void writesAreThereAndTold()
    {
        const auto start = [](const QVariantMap &rest) { return named("arcondata1", rest); };
        const QVariantList dwell{0, 0.0, 10};
        const QVariantList order{item("z"), item("a"), item("m")};
        const testsupport::Rows<const char *, QString, QVariant> rows{
            {"running", running, "", run},
            {"torch", "arc_weld.wire_clamping_torch_param", "", torch},
            {"built-in tool", toolPage, "", QVariantMap{{"tool", "tool0"}, {"wobj", "wobj0"}}},
            {"own tool", toolPage, "", QVariantMap{{"tool", "torch1"}, {"wobj", "fixture1"}}},
            {"list in the writer's order", project, "tool._list", order},
            {"emptied list", project, "tool._list", QVariantList()},
            {"number", arcOn, "arcondata1", start({{"current", 180.5}})},
            {"int for number", arcOn, "arcondata1", start({{"current", 180}})},
            {"int", arcOn, "arcondata1", start({{"hold_time", 300}})},
            {"whole double for int", arcOn, "arcondata1", start({{"hold_time", 300.0}})},
            {"bool", arcOn, "arcondata1", start({{"re_arcon", QVariantMap{{"enable", true}}}})},
            {"known code", arcOn, "arcondata1", start({{"mode", "pulse"}})},
            {"unknown code", arcOn, "arcondata1", start({{"mode", "cold_arc"}})},
            {"unknown children", arcOn, "arcondata1",
             start({{"hot_start", QVariantMap{{"current", 250.5}, {"on", true}}},
                    {"re_arcon", QVariantMap{{"enable", true}, {"newer", "x"}}},
                    {"nothing", QVariant()}})},
            {"three times", weave, "weavedata1", named("weavedata1", {{"dwell_time", dwell}})},
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
    void integersAreStoredAsIntegers()
    {
        Bench bench;
        const QVariantList dwell{0.0, 5.0, 10};
        QVERIFY(bench.set(weave, "weavedata1", named("weavedata1", {{"dwell_time", dwell}})).ok());
        const QVariantMap stored = bench.get(weave, "weavedata1").value.toMap();
        QCOMPARE(stored.value("dwell_time").toList().at(1).userType(), int(QMetaType::Int));
    }
    void aDamagedEntryIsNotAMissingFile()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath("controller.db");
        QString problem;
        const auto store = Store::open(name, &problem);
        Faults faults;
        Journal journal;
        Controller controller(*store, faults, journal, [] { return qint64(0); });
        QVERIFY(controller.handle({Write, arcOn, "arcondata1", named("arcondata1")}).ok());
        QVERIFY(runSql(name, "UPDATE entry SET value = '?'"));
        QCOMPARE(controller.handle({Read, arcOn, "arcondata1", {}}).code, int(StorageFailed));
        QCOMPARE(controller.handle({Read, arcOn, {}, {}}).code, int(StorageFailed));
        QVERIFY(controller.handle({Read, arcOn, "arcondata2", {}}).ok());
    }
};

QTEST_GUILESS_MAIN(tst_Requests)
#include "tst_requests.moc"
