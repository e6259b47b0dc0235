#include <QtTest>
#include <unistd.h>

#include "controller/core/backup.h"
#include "controller/core/repair.h"
#include "controllerfixture.h"
#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;
using welmo::controller::Request;
using welmo::controller::Store;
using Kind = Request::Kind;

namespace {

const QString path = QStringLiteral("a.node");

/// Everything that can be read from the store.
QVariantMap contentIn(const Store &store)
{
    QVariantMap content;
    for (const QString &node : {path, QString("b.node")}) {
        const auto entries = store.readAll(node);
        if (!entries)
            content.insert(node, store.errorText());
        else
            for (const auto &[key, entry] : *entries)
                content.insert(node + '/' + key, entry.value);
    }
    return content;
}

} // namespace

/// Files of a store that others changed: locks, copies, altered bytes, old formats. Damage is told,
/// and altered values are never read.
class tst_StoreFaults : public QObject
{
    Q_OBJECT
private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void aLockNeedsALivingHolder_data()
    {
        const QByteArray us = QByteArray::number(::getpid()) + "\ntst_storefaults\n"
            + QSysInfo::machineHostName().toUtf8() + '\n';
        addRows<QByteArray>({{"left by a killed program", us},
                             {"empty", ""},
                             {"somebody's letter", "Dear operator"}});
    }
    void aLockNeedsALivingHolder()
    {
        writeFile(file() + ".lock", std::get<1>(currentRow<QByteArray>()));
        {
            const auto store = open();
            QVERIFY2(store, qPrintable(m_problem));
            QVERIFY(!open() && m_problem.contains("in use"));
        }
        QVERIFY(open());
        QDir().mkdir(file() + ".lock");
        QVERIFY(!open() && m_problem.contains("directory"));
    }

    void aCopyOfARunningStoreIsRefused()
    {
        const auto owner = open();
        const QString early = at("early.db");
        QVERIFY(QFile::copy(file(), early));
        QVERIFY(owner->write({{path, "a", 1}}));
        const QString late = at("late.db");
        QVERIFY(QFile::copy(file(), late));
        writeFile(at("head.db"), contentOf(file()).left(100) + QByteArray(3996, '\0'));
        for (const QString &copy : {early, late, at("head.db")}) {
            const QByteArray before = contentOf(copy);
            QVERIFY2(!Store::open(copy, &m_problem), qPrintable(copy));
            QVERIFY(m_problem.startsWith(copy));
            QCOMPARE(contentOf(copy), before);
        }
    }

    void aKilledStoreComesBackEvenIfSomebodyLookedIntoIt()
    {
        const auto owner = open(); // stays open while its files are copied
        QVERIFY(owner->write({{path, "a", 1}}));
        for (const bool looked : {false, true}) {
            const QTemporaryDir other;
            const QString killed = other.filePath("controller.db");
            for (const char *suffix : {"", "-wal", ".lock"})
                QVERIFY(QFile::copy(file() + suffix, killed + suffix));
            if (looked)
                QVERIFY(testsupport::runSqlite(killed, "SELECT 1 FROM entry"));
            const auto store = Store::open(killed, &m_problem);
            QVERIFY2(store, qPrintable(m_problem));
            QCOMPARE(store->read(path, "a")->value, QVariant(1));
        }
    }

    void alteredBytesAreNeverServed()
    {
        QVector<Store::Change> changes;
        for (int i = 0; i < 60; ++i)
            changes.append(
                {i % 2 ? path : "b.node", QString::number(i), QString(40, 'a' + i % 20)});
        QVERIFY(open()->write(changes));
        const QByteArray whole = contentOf(file());
        const QVariantMap truth = contentIn(*open());
        int told = 0;
        for (int position = 0; position < whole.size(); position += 101) {
            QByteArray altered = whole;
            altered[position] = char(altered[position] ^ (1 << position % 8));
            const QTemporaryDir alone;
            const QString mutant = alone.filePath("controller.db");
            writeFile(mutant, altered);
            const auto store = Store::open(mutant, &m_problem);
            if (store && store->complaints().isEmpty())
                QCOMPARE(contentIn(*store), truth);
            else
                ++told;
        }
        QVERIFY(told > 20);
    }

    void aDamagedEntryIsToldAndCanBeWrittenAnew()
    {
        QVERIFY(open()->write({{path, "a", "good"}, {path, "b", "fine"}}));
        writeFile(file(), contentOf(file()).replace("\"good\"", "\"evil\""));
        {
            const auto store = open();
            QCOMPARE(store->complaints().size(), 1);
            QVERIFY(store->complaints().first().contains("a of a.node"));
            QVERIFY(!store->read(path, "a") && store->errorText().contains("a of a.node"));
            QCOMPARE(store->read(path, "b")->value, QVariant("fine"));
            QVERIFY(store->write({{path, "a", "new"}}));
            QCOMPARE(store->read(path, "a")->revision, 2);
        }
        QCOMPARE(open()->complaints(), QStringList());
    }

    // The controller works without the damaged entries, tells of them, and can be repaired.
    void aDamagedEntryHarmsNothingElse()
    {
        const QString node = "arc_weld.arcon_param";
        const auto arcOn = [](int n, const QString &text) {
            return QVariantMap{{"name", QString("arcondata%1").arg(n)}, {"annotation", text}};
        };
        const QString backup = at("backup.db");
        {
            ControllerFixture fixture(open());
            for (const auto &[n, text] :
                 {std::pair(1, "first"), {1, "marked one"}, {2, "marked two"}, {3, "fine"}}) {
                Request write{Kind::Set, node, QString("arcondata%1").arg(n), arcOn(n, text)};
                if (n == 1)
                    write.author = {"anna", "pendant", "2026-11-20 08:00:00"};
                QVERIFY(fixture.controller.handle(write).ok());
            }
            QCOMPARE(welmo::controller::backUp(file(), backup), QString());
        }
        QByteArray content = contentOf(file());
        for (const char *value : {"two\",\"name", "{\"mode\":\"test_run", "\"tool\":\"tool0"})
            content.replace(value, QByteArray(value).replace('o', '0'));
        const int entry = content.indexOf("{\"annotation\":\"marked one");
        QVERIFY(entry > 0);
        writeFile(file(), content.replace(entry + 15, 6, "MARKED"));
        {
            ControllerFixture fixture(open());
            QVERIFY2(fixture.started, "a damaged entry keeps the rest from coming up");
            QCOMPARE(fixture.get("arc_weld.arcon_param").value.toMap().keys(),
                     QStringList("arcondata3"));
            QCOMPARE(fixture.get("arc_weld.arcon_param", "arcondata1").code,
                     int(welmo::controller::StorageFailed));
            const QVariantList alarms =
                fixture.get("cell.alarms").value.toMap()["entries"].toList();
            QCOMPARE(alarms.size(), fixture.controller.complaints().size());
            QVERIFY(alarms.size() >= 2);
            QCOMPARE(alarms.first().toMap()["code"], QVariant("storage_damaged"));
        }
        QStringList lines;
        QVERIFY(
            !welmo::controller::repair(file(), {}, &lines)); // the audit does not know the second
        QVERIFY(lines.filter("arcondata1").constFirst().contains("by the audit"));
        QVERIFY(lines.filter("arcondata2").constFirst().contains("stays damaged"));
        QVERIFY(welmo::controller::repair(file(), backup, &lines));
        ControllerFixture fixture(open());
        QCOMPARE(fixture.controller.complaints(), QStringList());
        QCOMPARE(fixture.get("arc_weld.arcon_param", "arcondata1").value, arcOn(1, "marked one"));
        QCOMPARE(fixture.get("arc_weld.arcon_param", "arcondata2").value, arcOn(2, "marked two"));
    }

    void aLostEntryIsTold()
    {
        QVERIFY(open()->write({{path, "a", 1}, {path, "b", 2}}));
        QVERIFY(testsupport::runSqlite(file(), "DELETE FROM entry WHERE key = 'a'"));
        QCOMPARE(open()->complaints().size(), 1);
    }

    void backedUpAtWorkAndRestored()
    {
        using welmo::controller::backUp;
        using welmo::controller::restore;
        const QString backup = at("backup.db");
        QString identity;
        {
            const auto owner = open();
            identity = owner->identity();
            QVERIFY(owner->write({{path, "a", 1}}));
            QCOMPARE(backUp(file(), backup), QString());
            QVERIFY(owner->write({{path, "a", 2}}));
            QVERIFY(backUp(file(), backup).contains("already"));
            QVERIFY(restore(file(), backup).contains("in use"));
            QCOMPARE(owner->read(path, "a")->value, QVariant(2));
        }
        writeFile(at("bad.db"), contentOf(backup).replace("a.node", "b.node"));
        QVERIFY(restore(file(), at("bad.db")).startsWith(at("bad.db")));
        QCOMPARE(restore(file(), backup), QString());
        const auto store = open();
        QVERIFY2(store, qPrintable(m_problem));
        QCOMPARE(store->read(path, "a")->value, QVariant(1));
        QCOMPARE(store->complaints(), QStringList());
        QVERIFY(!store->identity().isEmpty() && store->identity() != identity);
        QCOMPARE(QDir(m_folder->path()).entryList({"*.replaced-*"}).size(), 1);
        QVERIFY(backUp(at("none.db"), at("other.db")).contains("no store"));
        QVERIFY(!QFile::exists(at("other.db")));
    }

    // The fixture has two files, one of them written twice, and one that was removed.
    void theFirstFormatIsTakenOver()
    {
        QVERIFY(QFile::copy(FIXTURES "/format1.db", file()));
        QFile(file()).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        for (const bool again : {false, true}) {
            ControllerFixture fixture(open());
            QVERIFY2(fixture.store, qPrintable(m_problem));
            QCOMPARE(fixture.controller.complaints(), QStringList());
            QVERIFY(!fixture.store->identity().isEmpty());
            const auto file = fixture.get("arc_weld.arcon_param", "arcondata1");
            QCOMPARE(file.value, QVariant(QVariantMap{{"name", "arcondata1"}, {"current", 120.5}}));
            QCOMPARE(*file.revision, 2);
            QVERIFY(!fixture.get("arc_weld.weld_param", "arcdata2").value.isValid());
            QVERIFY(!fixture.get("orbo.project", "point._list").value.toList().isEmpty());
            const QVariantList audit = fixture.get("cell.audit").value.toMap()["entries"].toList();
            QCOMPARE(audit.size(), 4);
            const QVariantMap second = audit.at(1).toMap();
            QCOMPARE(second["user"], QVariant("bert"));
            QCOMPARE(second["changes"],
                     QVariant(QVariantList{
                         QVariantMap{{"at", "current"}, {"old", 100}, {"new", 120.5}}}));
            if (again)
                QVERIFY(fixture.set("arc_weld.arcon_param", "arcondata1", file.value).ok());
        }
    }

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }
    QString file() const { return at("controller.db"); }
    std::unique_ptr<Store> open() { return Store::open(file(), &m_problem); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_problem;
};

QTEST_GUILESS_MAIN(tst_StoreFaults)
#include "tst_storefaults.moc"
