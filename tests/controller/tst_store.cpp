#include <QTemporaryDir>
#include <QtTest>
#include <limits>

#include "controller/json.h"
#include "controller/store.h"
#include "sql.h"

using controller::Store;

namespace {

const QString path = QStringLiteral("a.node");
const QString key = QStringLiteral("entry1");

} // namespace

/// What is written comes back, as what it was; what failed is never mistaken for what is not there.
class tst_Store : public QObject
{
    Q_OBJECT
private slots:
    void typesComeBack_data();
    void typesComeBack();
    void plainValues_data();
    void plainValues();
    void missingAndRemoved();
    void revisionsNeverStartAgain();
    void readAllKeepsApart();
    void damagedEntryIsAFailure();
    void allOrNothing();

private:
    QTemporaryDir m_folder;
    QString file(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
};

void tst_Store::typesComeBack_data()
{
    QTest::addColumn<QVariant>("written");
    QTest::addColumn<QVariant>("expected");
    const auto same = [](const char *name, const QVariant &value) {
        QTest::newRow(name) << value << value;
    };
    same("int", 42);
    same("negative int", -7);
    same("largest int", std::numeric_limits<int>::max());
    same("beyond int", QVariant(qlonglong(1) << 40));
    same("double", 12.5);
    same("smallest double", std::numeric_limits<double>::min());
    same("largest double", std::numeric_limits<double>::max());
    same("no short binary fraction", 0.1);
    same("true", true);
    same("false", false);
    same("text", QStringLiteral("焊接 \"äöü\"\n"));
    same("text that looks like a number", QStringLiteral("12"));
    same("empty text", QString(""));
    same("list", QVariantList{1, 2.5, true, QStringLiteral("x")});
    same("empty list", QVariantList());
    same("list of maps",
         QVariantList{QVariantMap{{"id", "z"}, {"n", 1}}, QVariantMap{{"id", "a"}, {"n", 2}}});
    same("map", QVariantMap{{"a", QVariantMap{{"b", 1}}}, {"c", QVariantList{0, 0, 0}}});
    same("empty map", QVariantMap());
    QTest::newRow("double without a fraction") << QVariant(3.0) << QVariant(3);
    QTest::newRow("list of texts")
        << QVariant(QStringList{"a", "b"}) << QVariant(QVariantList{"a", "b"});
    QTest::newRow("nothing in a map")
        << QVariant(QVariantMap{{"a", QVariant()}}) << QVariant(QVariantMap{{"a", QVariant()}});
}

void tst_Store::typesComeBack()
{
    QFETCH(QVariant, written);
    QFETCH(QVariant, expected);
    QString problem;
    QVERIFY(Store::open(file("types.db"), &problem)->write({{path, key, written}}));
    const auto entry = Store::open(file("types.db"), &problem)->read(path, key);
    QVERIFY(entry.has_value());
    QCOMPARE(entry->value.userType(), expected.userType());
    QCOMPARE(entry->value, expected);
    QCOMPARE(controller::toJson(entry->value), controller::toJson(expected));
}

void tst_Store::plainValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("plain");
    QVariant deep = 1;
    for (int i = 0; i < 1000; ++i)
        deep = QVariantList{deep};
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("nothing") << QVariant() << true;
    QTest::newRow("map") << QVariant(QVariantMap{{"a", QVariantList{1, 2.5, "x", true}}}) << true;
    QTest::newRow("not a number") << QVariant(qQNaN()) << false;
    QTest::newRow("infinite, inside") << QVariant(QVariantMap{{"a", infinity}}) << false;
    QTest::newRow("bytes, inside") << QVariant(QVariantList{QByteArray("x")}) << false;
    QTest::newRow("very deep") << deep << false;
    QTest::newRow("very long text") << QVariant(QString(1 << 20, 'x')) << false;
}

void tst_Store::plainValues()
{
    QFETCH(QVariant, value);
    QFETCH(bool, plain);
    QCOMPARE(controller::isPlain(value), plain);
}

void tst_Store::missingAndRemoved()
{
    const auto store = Store::inMemory();
    const auto missing = store->read(path, key);
    QVERIFY(missing.has_value());
    QVERIFY(!missing->value.isValid());
    QVERIFY(store->write({{path, key, 1}}));
    QVERIFY(store->remove(path, {key, QStringLiteral("never there")}));
    const auto removed = store->read(path, key);
    QVERIFY(removed.has_value());
    QVERIFY(!removed->value.isValid());
    QVERIFY(store->readAll(path)->empty());
}

void tst_Store::revisionsNeverStartAgain()
{
    const auto store = Store::inMemory();
    QVERIFY(store->write({{path, key, 1}}));
    QVERIFY(store->write({{path, key, 1}}));
    QCOMPARE(store->read(path, key)->revision, 2);
    QVERIFY(store->remove(path, {key}));
    QVERIFY(store->write({{path, key, 1}}));
    QCOMPARE(store->read(path, key)->revision, 4);
}

void tst_Store::readAllKeepsApart()
{
    const auto store = Store::inMemory();
    QVERIFY(store->write({{path, "a", 1}, {path, "b", 2}, {"a.nodeB", "c", 3}}));
    const auto all = store->readAll(path);
    QCOMPARE(all->size(), std::size_t(2));
    QCOMPARE(all->at("b").value, QVariant(2));
}

void tst_Store::damagedEntryIsAFailure()
{
    QString problem;
    const auto store = Store::open(file("entry.db"), &problem);
    QVERIFY(store->write({{path, key, 1}, {path, "good", 2}}));
    QVERIFY(runSql(file("entry.db"), "UPDATE entry SET value = '[1' WHERE key = 'entry1'"));
    QVERIFY(!store->read(path, key).has_value());
    QVERIFY(!store->errorText().isEmpty());
    QVERIFY(!store->readAll(path).has_value());
    QCOMPARE(store->read(path, "good")->value, QVariant(2));
}

void tst_Store::allOrNothing()
{
    QString problem;
    const auto store = Store::open(file("rollback.db"), &problem);
    QVERIFY(runSql(file("rollback.db"),
                   "CREATE TRIGGER t BEFORE INSERT ON entry WHEN NEW.key = 'bad'"
                   " BEGIN SELECT RAISE(ABORT, 'no space here'); END"));
    QVERIFY(!store->write({{path, key, 1}, {path, "bad", 2}}));
    QVERIFY(store->errorText().contains("no space here"));
    QCOMPARE(store->read(path, key)->revision, 0);
    QVERIFY(store->write({{path, key, 1}}));
}

QTEST_GUILESS_MAIN(tst_Store)
#include "tst_store.moc"
