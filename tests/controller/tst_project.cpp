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

} // namespace

/// The robot project as a pendant finds it, and what it may change there.
class tst_Project : public QObject
{
    Q_OBJECT
private slots:
    void startsWithEnoughToWeld()
    {
        ControllerBench bench;
        const auto all = [&bench](const QString &kind) {
            return namesOf(bench.get(project, kind + ".system_list").value)
                + namesOf(bench.get(project, kind + "._list").value);
        };
        const QVariant variables = bench.get(project, "var.system_list").value;
        QCOMPARE(namesOf(variables, "speed").join(' '),
                 QString("v5 v10 v20 v50 v100 v200 v500 v1000 vmax"));
        QCOMPARE(namesOf(variables, "zone").join(' '), QString("fine z0 z1 z5 z10 z20 z50"));
        QCOMPARE(all("point").join(' '), QString("p1 p2 p3 p4 p5 p6 p7 p8"));
        QCOMPARE(all("tool").join(' '), QString("tool0 torch1"));
        QCOMPARE(bench.get(project).value.toMap().value("tool").toMap().size(), 2);
        // Every reference is there.
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
    void inputsAndOutputs()
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
    void startKeepsWhatIsThere()
    {
        ControllerBench bench;
        QCOMPARE(bench.set(project, "point._list", QVariantList()).code, int(Ok));
        QCOMPARE(bench.controller.start().code, int(Ok));
        QCOMPARE(bench.get(project, "point._list").value, QVariant(QVariantList()));
    }
    void startFailsWhenItCannotBeWritten()
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
};

QTEST_GUILESS_MAIN(tst_Project)
#include "tst_project.moc"
