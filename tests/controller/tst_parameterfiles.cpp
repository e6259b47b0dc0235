#include <QTemporaryDir>
#include <QtTest>
#include <limits>

#include "controllerbench.h"
#include "sql.h"

using namespace controller;

namespace {

constexpr char arcOn[] = "arc_weld.arcon_param";

QVariantMap named(const QString &name, QVariantMap rest = {})
{
    rest.insert("name", name);
    return rest;
}

} // namespace

/// The numbered parameter files: what is accepted, what is refused, and that a refused write leaves
/// everything as it was.
class tst_ParameterFiles : public QObject
{
    Q_OBJECT
private slots:
    void everySetKeepsItsFiles_data();
    void everySetKeepsItsFiles();
    void fileNames_data();
    void fileNames();
    void payloads_data();
    void payloads();
    void integersAreStoredAsIntegers();
    void unknownChildrenSurvive();
    void aFailedReadIsNotAMissingFile();
    void aDamagedEntryIsNotAMissingFile();
    void removal_data();
    void removal();
    void removalIsForThreeSets_data();
    void removalIsForThreeSets();
};

void tst_ParameterFiles::everySetKeepsItsFiles_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("arc start") << "arcon_param"
                               << "arcondata";
    QTest::newRow("welding") << "weld_param"
                             << "arcdata";
    QTest::newRow("arc end") << "arcoff_param"
                             << "arcoffdata";
    QTest::newRow("weave") << "weave_param"
                           << "weavedata";
    QTest::newRow("segment") << "seg_param"
                             << "segdata";
}

void tst_ParameterFiles::everySetKeepsItsFiles()
{
    QFETCH(QString, set);
    QFETCH(QString, prefix);
    ControllerBench bench;
    const QByteArray path = "arc_weld." + set.toLatin1();
    const QString last = prefix + "40";
    const Reply missing = bench.get(path, last);
    QCOMPARE(missing.code, int(Ok));
    QVERIFY(!missing.value.isValid());

    const QVariantMap content = named(last, {{"annotation", "root pass"}});
    QCOMPARE(bench.set(path, last, content).code, int(Ok));
    QCOMPARE(bench.get(path, last).value, QVariant(content));
    QCOMPARE(bench.get(path).value, QVariant(QVariantMap{{last, content}}));
    QCOMPARE(bench.lastTold(path), QVariant(QVariantMap{{last, content}}));
    for (const QString &other :
         {prefix + "41", prefix + "0", prefix + "01", prefix, QString("x1")}) {
        QCOMPARE(bench.get(path, other).code, int(UnknownKey));
        QCOMPARE(bench.set(path, other, named(other)).code, int(UnknownKey));
    }
}

void tst_ParameterFiles::fileNames_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<int>("code");
    const QString path = arcOn;
    QTest::newRow("good") << path << "arcondata3" << QVariant(named("arcondata3")) << int(Ok);
    QTest::newRow("unknown set") << "arc_weld.gas_param"
                                 << "gas1" << QVariant(named("gas1")) << int(UnknownNode);
    QTest::newRow("empty set") << "arc_weld."
                               << "arcondata3" << QVariant(named("arcondata3")) << int(UnknownNode);
    QTest::newRow("file of another set")
        << path << "arcdata3" << QVariant(named("arcdata3")) << int(UnknownKey);
    QTest::newRow("no key") << path << "" << QVariant(named("arcondata3")) << int(UnknownKey);
    QTest::newRow("name of another file")
        << path << "arcondata3" << QVariant(named("arcondata4")) << int(BadPayload);
    QTest::newRow("name of the default")
        << path << "arcondata3" << QVariant(named("default")) << int(BadPayload);
    QTest::newRow("no name") << path << "arcondata3" << QVariant(QVariantMap{{"current", 1}})
                             << int(BadPayload);
    QTest::newRow("no children") << path << "arcondata3" << QVariant("arcondata3")
                                 << int(BadPayload);
    QTest::newRow("nothing") << path << "arcondata3" << QVariant() << int(BadPayload);
}

void tst_ParameterFiles::fileNames()
{
    QFETCH(QString, path);
    QFETCH(QString, key);
    QFETCH(QVariant, payload);
    QFETCH(int, code);
    ControllerBench bench;
    QCOMPARE(bench.set(path.toLatin1(), key, payload).code, code);
    QCOMPARE(bench.get(arcOn).value.toMap().size(), code == Ok ? 1 : 0);
    QCOMPARE(bench.told.size(), code == Ok ? 1 : 0);
}

void tst_ParameterFiles::payloads_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QVariantMap>("rest");
    QTest::addColumn<int>("code");
    const QString start = "arcondata1";
    const QString weld = "arcdata1";
    const QString weave = "weavedata1";
    const auto row = [](const char *name, const QString &file, const QVariantMap &rest, int code) {
        QTest::newRow(name) << file << rest << code;
    };
    row("number", start, {{"current", 180.5}}, Ok);
    row("int for a number", start, {{"current", 180}}, Ok);
    row("text for a number", start, {{"current", "180"}}, BadPayload);
    row("bool for a number", start, {{"current", true}}, BadPayload);
    row("number below", start, {{"current", -0.1}}, OutOfRange);
    row("number above", start, {{"current", 1e9}}, OutOfRange);
    row("not a number", start, {{"current", qQNaN()}}, BadPayload);
    row("infinite", start, {{"current", std::numeric_limits<double>::infinity()}}, BadPayload);
    row("int", start, {{"hold_time", 300}}, Ok);
    row("whole double for an int", start, {{"hold_time", 300.0}}, Ok);
    row("fraction for an int", start, {{"hold_time", 300.5}}, BadPayload);
    row("huge for an int", start, {{"hold_time", 1e300}}, OutOfRange);
    row("bool", start, {{"re_arcon", QVariantMap{{"enable", true}}}}, Ok);
    row("text for a bool", start, {{"re_arcon", QVariantMap{{"enable", "true"}}}}, BadPayload);
    row("int for a bool", start, {{"re_arcon", QVariantMap{{"enable", 1}}}}, BadPayload);
    row("value for an inner node", start, {{"re_arcon", 5}}, BadPayload);
    row("known code", start, {{"mode", "pulse"}}, Ok);
    row("unknown code", start, {{"mode", "cold_arc"}}, Ok);
    row("number for a code", start, {{"mode", 1}}, BadPayload);
    row("number for a text", start, {{"annotation", 1}}, BadPayload);
    row("unknown child of a wrong kind", start, {{"extra", QByteArray("x")}}, BadPayload);
    row("text for an inner code", weld,
        {{"arc_break_param", QVariantMap{{"arc_break_option", "stop_and_alarm"}}}}, Ok);
    row("number for an inner code", weld,
        {{"arc_break_param", QVariantMap{{"arc_break_option", 1}}}}, BadPayload);
    row("three dwell times", weave, {{"dwell_time", QVariantList{0, 0.0, 10}}}, Ok);
    row("two dwell times", weave, {{"dwell_time", QVariantList{0, 0}}}, BadPayload);
    row("a fraction among the dwell times", weave, {{"dwell_time", QVariantList{0, 0.5, 0}}},
        BadPayload);
    row("a text among the dwell times", weave, {{"dwell_time", QVariantList{0, "1", 0}}},
        BadPayload);
    row("one dwell time", weave, {{"dwell_time", 5}}, BadPayload);
    row("largest distance", "segdata1", {{"welded_distance", std::numeric_limits<double>::max()}},
        Ok);
}

void tst_ParameterFiles::payloads()
{
    QFETCH(QString, file);
    QFETCH(QVariantMap, rest);
    QFETCH(int, code);
    const QHash<QString, const char *> sets{{"arcondata1", arcOn},
                                            {"arcdata1", "arc_weld.weld_param"},
                                            {"weavedata1", "arc_weld.weave_param"},
                                            {"segdata1", "arc_weld.seg_param"}};
    ControllerBench bench;
    const QVariantMap before = named(file, {{"annotation", "before"}});
    QCOMPARE(bench.set(sets.value(file), file, before).code, int(Ok));
    bench.told.clear();
    const QVariantMap wanted = named(file, rest);
    QCOMPARE(bench.set(sets.value(file), file, wanted).code, code);
    QCOMPARE(bench.get(sets.value(file), file).value, QVariant(code == Ok ? wanted : before));
    QCOMPARE(bench.told.size(), code == Ok ? 1 : 0);
}

void tst_ParameterFiles::integersAreStoredAsIntegers()
{
    ControllerBench bench;
    const QString file = "weavedata1";
    const QVariantList dwell{0.0, 5.0, 10};
    QCOMPARE(bench.set("arc_weld.weave_param", file, named(file, {{"dwell_time", dwell}})).code,
             int(Ok));
    const QVariantMap told = bench.lastTold("arc_weld.weave_param").toMap().value(file).toMap();
    QCOMPARE(told.value("dwell_time").toList().at(1).userType(), int(QMetaType::Int));
}

void tst_ParameterFiles::unknownChildrenSurvive()
{
    ControllerBench bench;
    const QVariantMap content = named("arcondata1",
                                      {{"hot_start", QVariantMap{{"current", 250.5}, {"on", true}}},
                                       {"re_arcon", QVariantMap{{"enable", true}, {"newer", "x"}}},
                                       {"nothing", QVariant()}});
    QCOMPARE(bench.set(arcOn, "arcondata1", content).code, int(Ok));
    QCOMPARE(bench.get(arcOn, "arcondata1").value, QVariant(content));
}

void tst_ParameterFiles::aFailedReadIsNotAMissingFile()
{
    ControllerBench bench;
    bench.faults.setCode(arcOn, StorageFailed, 2);
    QCOMPARE(bench.get(arcOn, "arcondata1").code, int(StorageFailed));
    QCOMPARE(bench.set(arcOn, "arcondata1", named("arcondata1")).code, int(StorageFailed));
    const Reply missing = bench.get(arcOn, "arcondata1");
    QCOMPARE(missing.code, int(Ok));
    QVERIFY(!missing.value.isValid());

    bench.faults.set(Faults::Fault::DiskFull, true);
    QCOMPARE(bench.set(arcOn, "arcondata1", named("arcondata1")).code, int(StorageFailed));
    QCOMPARE(bench.told.size(), 0);
    bench.faults.clear();
    QVERIFY(!bench.get(arcOn, "arcondata1").value.isValid());
}

void tst_ParameterFiles::aDamagedEntryIsNotAMissingFile()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("controller.db");
    QString problem;
    const auto store = Store::open(name, &problem);
    Faults faults;
    Journal journal;
    Controller controller(*store, faults, journal, [] { return qint64(0); });
    using Kind = Request::Kind;
    QVERIFY(controller.handle({Kind::Set, arcOn, "arcondata1", named("arcondata1")}).ok());
    QVERIFY(runSql(name, "UPDATE entry SET value = '?'"));
    QCOMPARE(controller.handle({Kind::Get, arcOn, "arcondata1", {}}).code, int(StorageFailed));
    QCOMPARE(controller.handle({Kind::Get, arcOn, {}, {}}).code, int(StorageFailed));
    QCOMPARE(controller.handle({Kind::Get, arcOn, "arcondata2", {}}).code, int(Ok));
}

void tst_ParameterFiles::removal_data()
{
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("left");
    QTest::newRow("one") << QVariant(QStringList{"arcondata1"}) << int(Ok) << 1;
    QTest::newRow("list of values")
        << QVariant(QVariantList{"arcondata1", "arcondata2"}) << int(Ok) << 0;
    QTest::newRow("not there") << QVariant(QStringList{"arcondata9"}) << int(Ok) << 2;
    QTest::newRow("a stranger among them")
        << QVariant(QStringList{"arcondata1", "arcdata1"}) << int(UnknownKey) << 2;
    QTest::newRow("a name alone") << QVariant("arcondata1") << int(BadPayload) << 2;
    QTest::newRow("nothing") << QVariant() << int(BadPayload) << 2;
}

void tst_ParameterFiles::removal()
{
    QFETCH(QVariant, payload);
    QFETCH(int, code);
    QFETCH(int, left);
    ControllerBench bench;
    for (const QString &file : {QString("arcondata1"), QString("arcondata2")})
        QCOMPARE(bench.set(arcOn, file, named(file)).code, int(Ok));
    QCOMPARE(bench.run("arc_weld.remove.arcon_param", payload).code, code);
    QCOMPARE(bench.get(arcOn).value.toMap().size(), left);
}

void tst_ParameterFiles::removalIsForThreeSets_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("code");
    QTest::newRow("arc start") << "arc_weld.remove.arcon_param"
                               << "arcondata1" << int(Ok);
    QTest::newRow("welding") << "arc_weld.remove.weld_param"
                             << "arcdata1" << int(Ok);
    QTest::newRow("arc end") << "arc_weld.remove.arcoff_param"
                             << "arcoffdata1" << int(Ok);
    QTest::newRow("weave") << "arc_weld.remove.weave_param"
                           << "weavedata1" << int(UnknownCommand);
}

void tst_ParameterFiles::removalIsForThreeSets()
{
    QFETCH(QString, command);
    QFETCH(QString, file);
    QFETCH(int, code);
    ControllerBench bench;
    QCOMPARE(bench.run(command.toLatin1(), QStringList{file}).code, code);
}

QTEST_GUILESS_MAIN(tst_ParameterFiles)
#include "tst_parameterfiles.moc"
