#include <QtTest>
#include <limits>

#include "controllerfixture.h"
#include "schema/names.h"
#include "support/datarows.h"

using namespace testsupport;
using namespace welmo::controller;
using namespace welmo::names;
using Fault = Faults::Fault;
using Event = Journal::Event;
using Kind = Request::Kind;

namespace {

constexpr auto Get = Kind::Get;
constexpr auto Set = Kind::Set;
constexpr auto Do = Kind::Command;
const QString arcOn = QStringLiteral("arc_weld.arcon_param");
const QString weave = QStringLiteral("arc_weld.weave_param");
const QString segment = QStringLiteral("arc_weld.seg_param");
const QString file1 = QStringLiteral("arcondata1");

const QVariantMap collision{{"enable", true}, {"signal", "DI1_3"}, {"block", false}};
const QVariantMap run{{"test_run_speed", 200}, {"wire_feed_speed", 1.5}, {"gas_detect_time", 15}};
const QVariantMap real{{"mode", "real"}};

QVariant state(const char *word)
{
    return QVariantMap{{"state", word}};
}

QVariantMap named(const QString &name, QVariantMap rest = {})
{
    rest.insert("name", name);
    return rest;
}

QVariantMap releasedFile()
{
    return named("arcdata1", {{"current", 180}, {"voltage", 20}, {"ramp_time", 200}});
}

QVariantMap item(const char *name)
{
    return {{"id", name}, {"name", name}};
}

/// A controller with one file, whose stored values can be compared.
struct Fixture : ControllerFixture
{
    Fixture()
    {
        set(arcOn, file1, named(file1, {{"annotation", "before"}}));
        told.clear();
    }
    QVariantList everything()
    {
        QVariantList values;
        const auto &nodes = controller.nodes();
        for (auto node = nodes.keyBegin(); node != nodes.keyEnd(); ++node)
            values.append(controller.handle({Kind::Get, *node, {}, {}}).value);
        return values;
    }
};

} // namespace

/// Requests: a refused one has a code and changes nothing; a write can be read and is told; and
/// what commands do.
class tst_Requests : public QObject
{
    Q_OBJECT
private slots:
    void refused_data()
    {
        const QString removeArcOn = removePrefix + "arcon_param";
        const QVariantMap good = ControllerFixture::welder("RP/RPH", 500, true);
        const QVariantMap data = named("arcdata7", {{"current", -1}});
        const QVariantList two{item("torch1"), item("torch2")};
        const auto start = [](const char *key, const QVariant &value) {
            return named(file1, {{key, value}});
        };
        const auto dwell = [](const QVariant &times) {
            return named("weavedata1", {{"dwell_time", times}});
        };
        addRows<Kind, QString, QString, QVariant, int>(
            {{"unknown command", Do, "arc_weld.explode", "", {}, UnknownCommand},
             {"mode in another case", Do, setWeldMode, "", with(real, "mode", "Real"), OutOfRange},
             {"no payload", Do, setWeldMode, "", {}, BadPayload},
             {"current", Do, setWelder, "", with(good, "current_type", 400), OutOfRange},
             {"no signal", Do, setAnticollision, "", without(collision, "signal"), BadPayload},
             {"weld data", Do, enableWeldParam, "", data, OutOfRange},
             {"wire, name", Do, wireFeed, "wire_feed", QVariantMap{{"feed", true}}, BadPayload},
             {"stranger", Do, removeArcOn, "", QStringList{file1, "arcdata1"}, UnknownKey},
             {"name alone", Do, removeArcOn, "", file1, BadPayload},
             {"set that keeps its files", Do, "arc_weld.remove.weave_param", "",
              QStringList{"weavedata1"}, UnknownCommand},
             // nodes
             {"unknown node", Get, "arc_weld.explode", "", {}, UnknownNode},
             {"read only", Set, "cell.journal", "", real, ReadOnly},
             {"one child", Set, runningParam, "test_run_speed", run, UnknownKey},
             {"too fast", Set, runningParam, "", with(run, "test_run_speed", 251), OutOfRange},
             {"incomplete", Set, runningParam, "", without(run, "gas_detect_time"), BadPayload},
             {"seldom", Set, welderStateRate, "", QVariantMap{{"rate", 9}}, OutOfRange},
             {"built-in list", Set, project, "tool.system_list", two, ReadOnly},
             {"unknown kind", Set, project, "gripper._list", two, UnknownKey},
             {"same id", Set, project, "tool._list", QVariantList{item("a"), item("a")},
              BadPayload},
             // files
             {"after the last", Set, arcOn, "arcondata41", named("arcondata41"), UnknownKey},
             {"another spelling", Get, arcOn, "arcondata01", {}, UnknownKey},
             {"another name", Set, arcOn, "arcondata3", named("arcondata4"), BadPayload},
             {"text for number", Set, arcOn, file1, start("current", "180"), BadPayload},
             {"above", Set, arcOn, file1, start("current", 1e9), OutOfRange},
             {"no number", Set, arcOn, file1, start("current", qQNaN()), BadPayload},
             {"fraction", Set, arcOn, file1, start("hold_time", 300.5), BadPayload},
             {"int for bool", Set, arcOn, file1, start("re_arcon", QVariantMap{{"enable", 1}}),
              BadPayload},
             {"for inner node", Set, arcOn, file1, start("re_arcon", 5), BadPayload},
             {"long text", Set, arcOn, file1, start("x", QString(1 << 20, 'x')), BadPayload},
             {"no JSON", Set, arcOn, file1, start("x", QByteArray("x")), BadPayload},
             {"no percentage", Set, released, file1, QVariantMap{{"current", 101}}, OutOfRange},
             {"nothing to release", Set, released, "arcondata2", QVariantMap(), UnknownKey},
             {"content of another file", Set, released, file1,
              QVariantMap{{"content", named("arcondata2")}}, BadPayload},
             {"two times", Set, weave, "weavedata1", dwell(QVariantList{0, 0}), BadPayload}});
    }
    void refused()
    {
        const auto &[name, kind, path, key, payload, code] =
            currentRow<Kind, QString, QString, QVariant, int>();
        Fixture fixture;
        const QVariantList before = fixture.everything();
        QCOMPARE(fixture.controller.handle({kind, path, key, payload}).code, code);
        QCOMPARE(fixture.everything(), before);
        QVERIFY(fixture.told.isEmpty());
    }
    void operatorsTrimWhatIsReleased_data()
    {
        const auto data = [](const char *key, const QVariant &value) {
            return with(releasedFile(), key, value);
        };
        const QString nothing;
        // a write or a change of the running weld; the file; the refusal
        addRows<Kind, QVariantMap, QString>(
            {{"within", Set, data("current", 189), nothing},
             {"beyond", Set, data("current", 190), "trim_current arcdata1 190 171 189"},
             {"locked by 0", Set, data("voltage", 20.1), "trim_voltage arcdata1 20.1 20 20"},
             {"not named", Set, data("weld_speed", 11), "trim_weld_speed arcdata1 11 10 10"},
             {"other value", Set, data("ramp_time", 300), "trim_locked arcdata1 ramp_time"},
             {"other meaning", Set, data("current_mode", "wire_feed"),
              "trim_locked arcdata1 current_mode"},
             {"left as another set it", Set, data("annotation", "by anna"), nothing},
             {"left out", Set, without(releasedFile(), "ramp_time"), nothing},
             {"running weld", Do, data("current", 190), "trim_current arcdata1 190 171 189"},
             {"running weld, within", Do, data("current", 171), nothing}});
    }
    void operatorsTrimWhatIsReleased()
    {
        const auto &[name, kind, file, refusal] = currentRow<Kind, QVariantMap, QString>();
        const QString key = "arcdata1", node = "arc_weld.weld_param";
        Fixture fixture;
        const auto refused = [&](const Request &request) {
            const QVariantMap why = fixture.controller.handle(request).value.toMap();
            return (why["reason"].toString() + ' ' + why["arguments"].toStringList().join(' '))
                .trimmed();
        };
        QVERIFY(fixture.set(node, key, releasedFile()).ok());
        fixture.set(welmo::names::released, key, QVariantMap{{"current", 5}, {"voltage", 0}});
        fixture.set(node, key, with(releasedFile(), "annotation", "by anna"));
        const QString path = kind == Set ? node : enableWeldParam;
        Author otto{"otto", "pendant 2", {}, true};
        QCOMPARE(refused({kind, path, kind == Set ? key : QString(), file, {}, otto}), refusal);
        otto.isBound = false;
        QCOMPARE(refused({kind, path, kind == Set ? key : QString(), file, {}, otto}), QString());
        // New percentages keep the released content. Without a release everything is allowed.
        fixture.set(welmo::names::released, key, QVariantMap{{"current", 100}});
        const QVariant kept = fixture.get(welmo::names::released, key).value;
        QCOMPARE(kept.toMap()["content"].toMap(), releasedFile());
        QVERIFY(fixture.run(removeReleased, QStringList{key}).ok());
        otto.isBound = true;
        QCOMPARE(refused({Set, node, key, with(file, "mode", "x"), {}, otto}), QString());
    }
    void faultsRefuse_data()
    {
        const QVariantMap feed{{"feed", true}};
        addRows<Fault, QString, QString, QVariant, int>(
            {{"feed", Fault::WelderError, wireFeed, "wire_feel", feed, WrongState},
             {"feed, stuck", Fault::WireStuck, wireFeed, "wire_feel", feed, WireStuck},
             {"gas, none there", Fault::NoGas, gasFlow, "", {}, NoGas},
             {"weld data", Fault::WelderError, enableWeldParam, "", named("arcdata8"), WrongState},
             {"mode", Fault::DiskFull, setWeldMode, "", real, StorageFailed},
             {"removal", Fault::DiskFull, removePrefix + "arcon_param", "", QStringList{file1},
              StorageFailed}});
    }
    void faultsRefuse()
    {
        const auto &[name, fault, command, payloadName, payload, code] =
            currentRow<Fault, QString, QString, QVariant, int>();
        Fixture fixture;
        const QVariantList before = fixture.everything();
        fixture.faults.set(fault, true);
        fixture.controller.tick(); // tells of the fault
        fixture.told.clear();
        QCOMPARE(fixture.run(command, payload, payloadName).code, code);
        QVERIFY(fault != Fault::DiskFull || fixture.told.isEmpty());
        fixture.faults.clear();
        QCOMPARE(fixture.everything(), before);
        fixture.live(0, {1});
        QVERIFY(fixture.run(command, payload, payloadName).ok());
        QVERIFY(fixture.everything() != before);
    }
    void writesAreThereAndTold_data()
    {
        const auto start = [](const QVariantMap &rest) { return named(file1, rest); };
        const QVariantMap torch{{"enable", true}, {"signal", "DI1_4"}};
        addRows<QString, QString, QVariant>(
            {{"running", runningParam, "", run},
             {"torch", "arc_weld.wire_clamping_torch_param", "", torch},
             {"tool", toolPage, "", QVariantMap{{"tool", "tool0"}, {"wobj", "fixture1"}}},
             {"list in the writer's order", project, "tool._list",
              QVariantList{item("z"), item("a")}},
             {"unknown code", arcOn, file1, start({{"mode", "cold_arc"}})},
             {"unknown children", arcOn, file1,
              start({{"hot_start", QVariantMap{{"current", 250.5}, {"on", true}}},
                     {"re_arcon", QVariantMap{{"enable", true}, {"newer", "x"}}},
                     {"nothing", QVariant()}})},
             {"largest distance", segment, "segdata1",
              named("segdata1", {{"welded_distance", std::numeric_limits<double>::max()}})}});
    }
    void writesAreThereAndTold()
    {
        const auto &[name, path, key, payload] = currentRow<QString, QString, QVariant>();
        Fixture fixture;
        QVERIFY(fixture.set(path, key, payload).ok());
        QCOMPARE(fixture.get(path, key).value, payload);
        QCOMPARE(fixture.told.size(), 1);
        QVariant told = fixture.lastTold(path);
        for (const QString &part : key.split('.', Qt::SkipEmptyParts))
            told = told.toMap().value(part);
        QCOMPARE(told, payload);
    }
    void welderChoiceSetsStateAndModes()
    {
        ControllerFixture fixture;
        QVector<double> most;
        for (const bool pulsed : {true, false}) {
            const QVariantMap choice =
                ControllerFixture::welder(pulsed ? "RP/RPH" : "RL/RPL", pulsed ? 800 : 350, pulsed);
            QVERIFY(fixture.run(setWelder, choice, "set_device_param").ok());
            QCOMPARE(fixture.get("arc_weld.welder_setting").value, QVariant(choice));
            QCOMPARE(fixture.lastTold(welderState), state(pulsed ? "ok" : "disabled"));
            const QVariantMap device = fixture.get("arc_weld.device_param").value.toMap();
            QCOMPARE(fixture.lastTold("arc_weld.device_param"), QVariant(device));
            QCOMPARE(device.value("work_mode").toList().contains("Double Pulse"), pulsed);
            for (const char *range : {"voltage_range", "arcoff_voltage_range"})
                most.append(device[range].toMap()["separate"].toList().at(1).toDouble());
        }
        QVERIFY(most.at(2) < most.at(0)
                && most.at(3) < most.at(1)); // the smaller welder has the smaller ranges
    }
    void theShieldNeedsTheSensor()
    {
        ControllerFixture fixture;
        for (const auto &[on, block] : {std::pair{true, false}, {true, true}, {false, true}}) {
            const QVariantMap payload{{"enable", on}, {"signal", "DI1_3"}, {"block", block}};
            QVERIFY(fixture.run(setAnticollision, payload).ok());
            const QVariant expected = QVariantMap{{"enable", on}, {"block", on && block}};
            QCOMPARE(fixture.get(anticollisionState).value, expected);
            QCOMPARE(fixture.lastTold(anticollisionState), expected);
        }
    }
    void gasFlowsForItsTime()
    {
        for (const Fault fault : {Fault::LinkDown, Fault::WelderError, Fault::NoGas}) {
            ControllerFixture fixture;
            QVERIFY(fixture.set(runningParam, {}, with(run, "gas_detect_time", 5)).ok());
            QVERIFY(fixture.run(gasFlow).ok());
            fixture.now += fault == Fault::LinkDown ? 4999 : 1000; // nothing of this ends it
            fixture.controller.tick();
            QCOMPARE(fixture.events(), QVector<Event>{Event::GasFlows});
            fixture.faults.set(fault, true);
            fixture.now += 1;
            fixture.controller.tick();
            QCOMPARE(fixture.events(), (QVector<Event>{Event::GasFlows, Event::GasStops}));
            QVERIFY(!fixture.controller.isBusy());
        }
    }
    void startKeepsWhatIsThere()
    {
        ControllerFixture fixture;
        QVERIFY(!fixture.get(project, "point._list").value.toList().isEmpty());
        QVERIFY(fixture.set(project, "point._list", QVariantList()).ok());
        QVERIFY(fixture.controller.start().ok());
        QCOMPARE(fixture.get(project, "point._list").value, QVariant(QVariantList()));
        fixture.faults.set(Fault::DiskFull, true);
        const auto empty = Store::inMemory();
        Controller other(*empty, fixture.faults, fixture.journal, [] { return qint64(0); });
        QCOMPARE(other.start().code, int(StorageFailed));
    }
};

QTEST_GUILESS_MAIN(tst_Requests)
#include "tst_requests.moc"
