#include <QTemporaryDir>
#include <QtTest>

#include "controllerbench.h"
#include "sql.h"
#include "support/rows.h"

using namespace controller;

namespace {

constexpr char arcOn[] = "arc_weld.arcon_param";

QVariantMap named(const QString &name, QVariantMap rest = {})
{
    rest.insert("name", name);
    return rest;
}

} // namespace

/// The numbered parameter files: which there are, and that a file that cannot be read is never
/// taken for one that is missing.
class tst_ParameterFiles : public QObject
{
    Q_OBJECT
private slots:
    void everySetKeepsItsFiles()
    {
        const testsupport::Rows<QByteArray, QString, bool> rows{
            // whether files can be removed
            {"arc start", "arcon_param", "arcondata", true},
            {"welding", "weld_param", "arcdata", true},
            {"arc end", "arcoff_param", "arcoffdata", true},
            {"weave", "weave_param", "weavedata", false},
            {"segment", "seg_param", "segdata", false},
        };
        for (const auto &[name, set, prefix, removes] : rows) {
            ControllerBench bench;
            const QByteArray path = "arc_weld." + set;
            const QString last = prefix + "40";
            const Reply missing = bench.get(path, last);
            QVERIFY(missing.ok() && !missing.value.isValid());
            const QVariantMap content = named(last, {{"annotation", "root pass"}});
            QVERIFY(bench.set(path, last, content).ok());
            QCOMPARE(bench.get(path, last).value, QVariant(content));
            QCOMPARE(bench.get(path).value, QVariant(QVariantMap{{last, content}}));
            QCOMPARE(bench.lastTold(path), QVariant(QVariantMap{{last, content}}));
            for (const char *number : {"41", "0", "01", ""}) {
                QCOMPARE(bench.get(path, prefix + number).code, int(UnknownKey));
                QCOMPARE(bench.set(path, prefix + number, named(prefix + number)).code,
                         int(UnknownKey));
            }
            QVERIFY(bench.set(path, prefix + "1", named(prefix + "1")).ok());
            const QByteArray remove = "arc_weld.remove." + set;
            const QVariantList files{last, prefix + "9"}; // not there: as good as removed
            QCOMPARE(bench.run(remove, files).ok(), removes);
            QCOMPARE(bench.get(path).value.toMap().contains(last), !removes);
            QVERIFY(bench.get(path).value.toMap().contains(prefix + "1"));
        }
    }
    void integersAreStoredAsIntegers()
    {
        ControllerBench bench;
        const QString file = "weavedata1";
        const QVariantList dwell{0.0, 5.0, 10};
        QVERIFY(bench.set("arc_weld.weave_param", file, named(file, {{"dwell_time", dwell}})).ok());
        const QVariantMap told = bench.lastTold("arc_weld.weave_param").toMap().value(file).toMap();
        QCOMPARE(told.value("dwell_time").toList().at(1).userType(), int(QMetaType::Int));
    }
    void aFailedReadIsNotAMissingFile()
    {
        ControllerBench bench;
        bench.faults.setCode(arcOn, StorageFailed, 2);
        QCOMPARE(bench.get(arcOn, "arcondata1").code, int(StorageFailed));
        QCOMPARE(bench.set(arcOn, "arcondata1", named("arcondata1")).code, int(StorageFailed));
        bench.faults.set(Faults::Fault::DiskFull, true);
        QCOMPARE(bench.set(arcOn, "arcondata1", named("arcondata1")).code, int(StorageFailed));
        QVERIFY(bench.told.isEmpty());
        bench.faults.clear();
        const Reply missing = bench.get(arcOn, "arcondata1");
        QVERIFY(missing.ok() && !missing.value.isValid());
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
        using Kind = Request::Kind;
        QVERIFY(controller.handle({Kind::Set, arcOn, "arcondata1", named("arcondata1")}).ok());
        QVERIFY(runSql(name, "UPDATE entry SET value = '?'"));
        QCOMPARE(controller.handle({Kind::Get, arcOn, "arcondata1", {}}).code, int(StorageFailed));
        QCOMPARE(controller.handle({Kind::Get, arcOn, {}, {}}).code, int(StorageFailed));
        QVERIFY(controller.handle({Kind::Get, arcOn, "arcondata2", {}}).ok());
    }
};

QTEST_GUILESS_MAIN(tst_ParameterFiles)
#include "tst_parameterfiles.moc"
