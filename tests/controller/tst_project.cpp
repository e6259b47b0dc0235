#include <QtTest>

#include "controllerbench.h"

using namespace controller;

namespace {

constexpr char project[] = "orbo.project";

QStringList namesOf(const QVariant &list, const QString &type = {})
{
    QStringList names;
    for (const QVariant &item : list.toList()) {
        const QVariantMap map = item.toMap();
        if (type.isEmpty() || map.value("type") == type)
            names.append(map.value("name").toString());
    }
    return names;
}

QVariantMap tool(const QString &name)
{
    return {{"id", name}, {"name", name}};
}

} // namespace

/// The robot project as a pendant finds it, and what it may change there.
class tst_Project : public QObject
{
    Q_OBJECT
private slots:
    void startsWithEnoughToWeld();
    void everyReferenceIsThere();
    void inputsAndOutputs();
    void startKeepsWhatIsThere();
    void startFailsWhenItCannotBeWritten();
    void writes_data();
    void writes();
    void orderIsTheWriters();
    void choice_data();
    void choice();
};

void tst_Project::startsWithEnoughToWeld()
{
    ControllerBench bench;
    const QVariant variables = bench.get(project, "var.system_list").value;
    QCOMPARE(namesOf(variables, "speed"),
             QString("v5 v10 v20 v50 v100 v200 v500 v1000 vmax").split(' '));
    QCOMPARE(namesOf(variables, "zone"), QString("fine z0 z1 z5 z10 z20 z50").split(' '));
    QCOMPARE(namesOf(bench.get(project, "point._list").value),
             QString("p1 p2 p3 p4 p5 p6 p7 p8").split(' '));
    QVERIFY(bench.get(project, "user_frame._list").value.isValid());
    const QVariantMap whole = bench.get(project).value.toMap();
    QCOMPARE(namesOf(whole.value("tool").toMap().value("system_list")), QStringList("tool0"));
    QCOMPARE(namesOf(whole.value("tool").toMap().value("_list")), QStringList("torch1"));
    QCOMPARE(namesOf(whole.value("wobj").toMap().value("system_list")), QStringList("wobj0"));
}

void tst_Project::everyReferenceIsThere()
{
    ControllerBench bench;
    const auto all = [&bench](const QString &kind) {
        return namesOf(bench.get(project, kind + ".system_list").value)
            + namesOf(bench.get(project, kind + "._list").value);
    };
    for (const QVariant &item : bench.get(project, "point._list").value.toList()) {
        const QVariantMap point = item.toMap();
        QVERIFY(all("tool").contains(point.value("tool").toString()));
        QVERIFY(all("wobj").contains(point.value("wobj").toString()));
        const QVariantMap coordinate = point.value("coordinate").toMap();
        QVERIFY(all("user_frame").contains(coordinate.value("user").toString()));
        QVERIFY(all("wobj").contains(coordinate.value("wobj").toString()));
    }
    QVERIFY(all("tool").contains(bench.get("orbo.toolpage", "tool").value.toString()));
    QVERIFY(all("wobj").contains(bench.get("orbo.toolpage", "wobj").value.toString()));
}

void tst_Project::inputsAndOutputs()
{
    ControllerBench bench;
    QStringList offered;
    QSet<int> types;
    for (const QVariant &item : bench.get("orbo.robot.io.signal_detail").value.toList()) {
        const QVariantMap signal = item.toMap();
        types.insert(signal.value("signal_type").toInt());
        if (signal.value("signal_type") == 1 && !signal.value("is_default_IO").toBool())
            offered.append(signal.value("id").toString());
    }
    QCOMPARE(types, (QSet<int>{1, 2}));
    QVERIFY(offered.contains("DI1_16") && offered.contains("DI2_8"));
    QVERIFY(!offered.contains("DI1_1"));
}

void tst_Project::startKeepsWhatIsThere()
{
    ControllerBench bench;
    QCOMPARE(bench.set(project, "point._list", QVariantList()).code, int(Ok));
    QCOMPARE(bench.controller.start().code, int(Ok));
    QCOMPARE(bench.get(project, "point._list").value, QVariant(QVariantList()));
}

void tst_Project::startFailsWhenItCannotBeWritten()
{
    const auto store = Store::inMemory();
    Faults faults;
    Journal journal;
    Controller controller(*store, faults, journal, [] { return qint64(0); });
    faults.set(Faults::Fault::DiskFull, true);
    QCOMPARE(controller.start().code, int(StorageFailed));
    faults.clear();
    QCOMPARE(controller.start().code, int(Ok));
}

void tst_Project::writes_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("payload");
    QTest::addColumn<int>("code");
    const QVariant two = QVariantList{tool("torch1"), tool("torch2")};
    QTest::newRow("own list") << "tool._list" << two << int(Ok);
    QTest::newRow("emptied") << "tool._list" << QVariant(QVariantList()) << int(Ok);
    QTest::newRow("built-in list") << "tool.system_list" << two << int(ReadOnly);
    QTest::newRow("unknown kind") << "gripper._list" << two << int(UnknownKey);
    QTest::newRow("unknown list") << "tool.my_list" << two << int(UnknownKey);
    QTest::newRow("no list") << "" << two << int(UnknownKey);
    QTest::newRow("map") << "tool._list" << QVariant(tool("torch2")) << int(BadPayload);
    QTest::newRow("same id") << "tool._list" << QVariant(QVariantList{tool("a"), tool("a")})
                             << int(BadPayload);
    QTest::newRow("item without an id")
        << "tool._list" << QVariant(QVariantList{QVariantMap{{"name", "a"}}}) << int(BadPayload);
    QTest::newRow("item that is no map")
        << "tool._list" << QVariant(QVariantList{"torch2"}) << int(BadPayload);
}

void tst_Project::writes()
{
    QFETCH(QString, key);
    QFETCH(QVariant, payload);
    QFETCH(int, code);
    ControllerBench bench;
    const QVariant before = bench.get(project).value;
    QCOMPARE(bench.set(project, key, payload).code, code);
    if (code == Ok) {
        QCOMPARE(bench.get(project, key).value, payload);
        QCOMPARE(bench.lastTold(project),
                 QVariant(QVariantMap{{"tool", QVariantMap{{"_list", payload}}}}));
    } else {
        QCOMPARE(bench.get(project).value, before);
        QVERIFY(bench.told.isEmpty());
    }
}

void tst_Project::orderIsTheWriters()
{
    ControllerBench bench;
    QCOMPARE(bench.set(project, "tool._list", QVariantList{tool("z"), tool("a"), tool("m")}).code,
             int(Ok));
    QCOMPARE(namesOf(bench.get(project, "tool._list").value), QString("z a m").split(' '));
}

void tst_Project::choice_data()
{
    QTest::addColumn<QVariantMap>("payload");
    QTest::addColumn<int>("code");
    QTest::newRow("built in") << QVariantMap{{"tool", "tool0"}, {"wobj", "wobj0"}} << int(Ok);
    QTest::newRow("own") << QVariantMap{{"tool", "torch1"}, {"wobj", "fixture1"}} << int(Ok);
    QTest::newRow("no such tool") << QVariantMap{{"tool", "torch9"}, {"wobj", "wobj0"}}
                                  << int(OutOfRange);
    QTest::newRow("tool alone") << QVariantMap{{"tool", "tool0"}} << int(BadPayload);
}

void tst_Project::choice()
{
    QFETCH(QVariantMap, payload);
    QFETCH(int, code);
    ControllerBench bench;
    const QVariant before = bench.get("orbo.toolpage").value;
    QCOMPARE(bench.set("orbo.toolpage", {}, payload).code, code);
    QCOMPARE(bench.get("orbo.toolpage").value, code == Ok ? QVariant(payload) : before);
    QCOMPARE(bench.lastTold("orbo.toolpage"), code == Ok ? QVariant(payload) : QVariant());
}

QTEST_GUILESS_MAIN(tst_Project)
#include "tst_project.moc"
