#include <QtTest>
#include <limits>

#include "controller/core/json.h"
#include "controller/core/store.h"
#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;
using welmo::controller::Store;

namespace {

const QString path = QStringLiteral("a.node");
const QString key = QStringLiteral("entry1");

} // namespace

/// The store: values come back with their types, revisions count up, and other files are refused.
class tst_Store : public QObject
{
    Q_OBJECT
private slots:
    void typesComeBack_data()
    {
        const QVariantMap inner{{"a", QVariantMap{{"b", 1}}}, {"c", QVariantList()}};
        const QVariantList mixed{1, 2.5, true, "x", QVariantMap{{"id", "z"}, {"n", QVariant()}}};
        addRows<QVariant, QVariant>({{"largest double", std::numeric_limits<double>::max(),
                                      std::numeric_limits<double>::max()},
                                     {"no short binary fraction", 0.1, 0.1},
                                     {"double without a fraction", 3.0, 3},
                                     {"bool", true, true},
                                     {"text", "焊接 \"äöü\"\n", "焊接 \"äöü\"\n"},
                                     {"list", mixed, mixed},
                                     {"map", inner, inner}});
    }
    void typesComeBack()
    {
        const auto &[name, written, expected] = currentRow<QVariant, QVariant>();
        const QString file = m_folder.filePath("types.db");
        QVERIFY(Store::open(file, &m_problem)->write({{path, key, written}}));
        const auto entry = Store::open(file, &m_problem)->read(path, key);
        QVERIFY(entry.has_value());
        QCOMPARE(entry->value.userType(), expected.userType());
        QCOMPARE(entry->value, expected);
        QCOMPARE(welmo::controller::toJson(entry->value), welmo::controller::toJson(expected));
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
        QCOMPARE(store->read(path, key)->revision, 3); // the revision goes on after the removal
        QCOMPARE(store->revision(path, key), std::optional<qint64>(3));
        QCOMPARE(store->revision(path, "never there"), std::optional<qint64>(0));
    }
    void refusedFileIsLeftAlone_data()
    {
        const QString own = m_folder.filePath("own.db");
        for (int i = 0; i < 40; ++i) // enough to fill several pages
            Store::open(own, &m_problem)->write({{path, QString::number(i), QString(1000, 'x')}});
        const QByteArray whole = contentOf(own);
        QByteArray damaged = whole;
        damaged.replace(4096 + 8, 3000, QByteArray(3000, '\xff'));
        addRows<QByteArray, QString>(
            {{"a letter", QByteArray("Dear operator"), "not a controller store"},
             // The header has the version at byte 60 and the program at byte 68.
             {"another program's database", QByteArray(whole).replace(60, 12, QByteArray(12, 0)),
              "another program"},
             {"newer", QByteArray(whole).replace(60, 4, QByteArray("\0\0\0\x63", 4)),
              "newer version"},
             {"damaged", damaged, "damaged"},
             {"cut off", whole.left(whole.size() / 2), "damaged"}});
    }
    void refusedFileIsLeftAlone()
    {
        const auto &[name, content, reason] = currentRow<QByteArray, QString>();
        const QTemporaryDir alone;
        const QString file = alone.filePath("controller.db");
        writeFile(file, content);
        QVERIFY(!Store::open(file, &m_problem));
        QVERIFY2(m_problem.startsWith(file + ": "), qPrintable(m_problem));
        QVERIFY2(m_problem.contains(reason) && !m_problem.contains('\n'), qPrintable(m_problem));
        QCOMPARE(contentOf(file), content);
        QCOMPARE(QDir(alone.path()).entryList(QDir::Files), QStringList("controller.db"));
    }

private:
    const QTemporaryDir m_folder;
    QString m_problem;
};

QTEST_GUILESS_MAIN(tst_Store)
#include "tst_store.moc"
