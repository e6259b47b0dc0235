#include <QTemporaryDir>
#include <QtTest>
#include <limits>

#include "controller/json.h"
#include "controller/store.h"
#include "sql.h"
#include "support/rows.h"

using controller::Store;
using testsupport::Rows;

namespace {

const QString path = QStringLiteral("a.node");
const QString key = QStringLiteral("entry1");

} // namespace

/// What is written comes back, as what it was; a write is carried out whole or not at all.
class tst_Store : public QObject
{
    Q_OBJECT
private slots:
    void typesComeBack()
    {
        const QVariantMap inner{{"a", QVariantMap{{"b", 1}}}, {"c", QVariantList{0, 0, 0}}};
        const QVariantMap withNothing{{"a", QVariant()}};
        const QVariantList maps{QVariantMap{{"id", "z"}, {"n", 1}}, QVariantMap{{"id", "a"}}};
        const Rows<QVariant, QVariant> rows{
            {"negative int", -7, -7},
            {"largest int", std::numeric_limits<int>::max(), std::numeric_limits<int>::max()},
            {"beyond int", qlonglong(1) << 40, qlonglong(1) << 40},
            {"double", 12.5, 12.5},
            {"smallest double", std::numeric_limits<double>::min(),
             std::numeric_limits<double>::min()},
            {"largest double", std::numeric_limits<double>::max(),
             std::numeric_limits<double>::max()},
            {"no short binary fraction", 0.1, 0.1},
            {"double without a fraction", 3.0, 3},
            {"bool", true, true},
            {"text", QStringLiteral("焊接 \"äöü\"\n"), QStringLiteral("焊接 \"äöü\"\n")},
            {"text that looks like a number", "12", "12"},
            {"empty text", QString(""), QString("")},
            {"list", QVariantList{1, 2.5, true, "x"}, QVariantList{1, 2.5, true, "x"}},
            {"empty list", QVariantList(), QVariantList()},
            {"list of texts", QStringList{"a", "b"}, QVariantList{"a", "b"}},
            {"list of maps", maps, maps},
            {"map", inner, inner},
            {"empty map", QVariantMap(), QVariantMap()},
            {"nothing in a map", withNothing, withNothing},
        };
        const QTemporaryDir folder;
        QString problem;
        for (const auto &[name, written, expected] : rows) {
            const QString file = folder.filePath("types.db");
            QVERIFY(Store::open(file, &problem)->write({{path, key, written}}));
            const auto entry = Store::open(file, &problem)->read(path, key);
            QVERIFY(entry.has_value());
            QCOMPARE(entry->value.userType(), expected.userType());
            QCOMPARE(entry->value, expected);
            QCOMPARE(controller::toJson(entry->value), controller::toJson(expected));
        }
    }
    void plainValues()
    {
        QVariant deep = 1;
        for (int i = 0; i < 1000; ++i)
            deep = QVariantList{deep};
        const double infinity = std::numeric_limits<double>::infinity();
        const Rows<QVariant, bool> rows{
            {"nothing", QVariant(), true},
            {"map", QVariantMap{{"a", QVariantList{1, 2.5, "x", true}}}, true},
            {"not a number", qQNaN(), false},
            {"infinite, inside", QVariantMap{{"a", infinity}}, false},
            {"bytes, inside", QVariantList{QByteArray("x")}, false},
            {"very deep", deep, false},
            {"very long text", QString(1 << 20, 'x'), false},
        };
        for (const auto &[name, value, plain] : rows)
            QCOMPARE(controller::isPlain(value), plain);
    }
    void entriesComeAndGo()
    {
        const auto store = Store::inMemory();
        QVERIFY(store->read(path, key).has_value() && !store->read(path, key)->value.isValid());
        QVERIFY(store->write({{path, key, 1}, {path, "b", 2}, {"a.nodeB", "c", 3}}));
        const auto all = store->readAll(path);
        QCOMPARE(all->size(), std::size_t(2));
        QCOMPARE(all->at("b").value, QVariant(2));
        QVERIFY(store->remove(path, {key, QStringLiteral("never there")}));
        QVERIFY(store->read(path, key).has_value() && !store->read(path, key)->value.isValid());
        QVERIFY(store->write({{path, key, 1}}));
        QCOMPARE(store->read(path, key)->revision, 3); // never starts again
        QCOMPARE(store->revision(path, key), std::optional<qint64>(3));
        QCOMPARE(store->revision(path, "never there"), std::optional<qint64>(0));
    }
    void allOrNothing()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("rollback.db");
        QString problem;
        const auto store = Store::open(file, &problem);
        QVERIFY(runSql(file,
                       "CREATE TRIGGER t BEFORE INSERT ON entry WHEN NEW.key = 'bad'"
                       " BEGIN SELECT RAISE(ABORT, 'no space here'); END"));
        QVERIFY(!store->write({{path, key, 1}, {path, "bad", 2}}));
        QVERIFY(store->errorText().contains("no space here"));
        QCOMPARE(store->read(path, key)->revision, 0);
        QVERIFY(store->write({{path, key, 1}}));
    }
};

QTEST_GUILESS_MAIN(tst_Store)
#include "tst_store.moc"
