#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <cstdio>

#include "controller/store.h"
#include "sql.h"
#include "support/rows.h"

using controller::Store;
using testsupport::Rows;

namespace {

const QString path = QStringLiteral("a.node");

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeContent(const QString &name, const QByteArray &content)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write the test's own file");
}

QByteArray databaseWith(const QString &name, const char *sql)
{
    if (!runSql(name, sql))
        qFatal("cannot make the test's own database");
    return contentOf(name);
}

// A store of ours with enough in it to have pages that can be damaged.
QByteArray ownStore(const QString &name)
{
    QString problem;
    for (int i = 0; i < 40; ++i) {
        const auto store = Store::open(name, &problem);
        store->write({{path, QString::number(i), QString(1000, 'x')}});
    }
    return contentOf(name);
}

// The other side of survivesBeingKilled(): writes, and says what was acknowledged.
int writeForEver(const QString &file, int first)
{
    QString problem;
    const auto store = Store::open(file, &problem);
    if (!store) {
        std::fprintf(stderr, "%s\n", qPrintable(problem));
        return 1;
    }
    for (int i = first; store->write({{path, QString::number(i), QString(2000, 'x')}}); ++i) {
        std::printf("%d\n", i);
        std::fflush(stdout);
    }
    return 1;
}

} // namespace

/// The file under the store: whose it is, who may have it, and what a crash leaves of it.
class tst_StoreFile : public QObject
{
    Q_OBJECT
private slots:
    void refusedFileIsLeftAlone()
    {
        const QTemporaryDir folder;
        const QByteArray whole = ownStore(folder.filePath("own.db"));
        QByteArray damaged = whole;
        damaged.replace(4096 + 8, 3000, QByteArray(3000, '\xff'));
        const QByteArray newer =
            databaseWith(folder.filePath("own.db"), "PRAGMA user_version = 99");
        const Rows<QByteArray, QString> rows{
            {"a letter", QByteArray(5000, 'a'), "not a controller store"},
            {"a short letter", QByteArray("Dear operator"), "not a controller store"},
            {"another program's database",
             databaseWith(folder.filePath("foreign.db"), "CREATE TABLE entry (a)"),
             "another program"},
            {"another program's mark",
             databaseWith(folder.filePath("marked.db"), "PRAGMA application_id = 7"),
             "another program"},
            {"newer", newer, "newer version"},
            {"damaged", damaged, "damaged"},
            {"cut off", whole.left(whole.size() / 2), "damaged"},
        };
        for (const auto &[name, content, reason] : rows) {
            const QTemporaryDir own;
            const QString file = own.filePath("controller.db");
            writeContent(file, content);
            QString problem;
            QVERIFY(!Store::open(file, &problem));
            QVERIFY2(problem.startsWith(file + ": "), qPrintable(problem));
            QVERIFY2(problem.contains(reason) && !problem.contains('\n'), qPrintable(problem));
            QCOMPARE(contentOf(file), content);
            QCOMPARE(QDir(own.path()).entryList(QDir::Files), QStringList("controller.db"));
        }
    }
    void folderThatCannotBeUsed()
    {
        const QTemporaryDir folder;
        writeContent(folder.filePath("letter"), "Dear operator");
        QVERIFY(QDir(folder.path()).mkdir("taken.db"));
        for (const char *file : {"letter/controller.db", "taken.db", "/proc/controller.db"}) {
            const QString name = QDir(folder.path()).filePath(file);
            QString problem;
            QVERIFY(!Store::open(name, &problem));
            QVERIFY2(problem.startsWith(name + ": ") && problem.contains("cannot be"),
                     qPrintable(problem));
        }
    }
    void oneOwnerAtATime()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath("deep/down/controller.db"); // folders are made
        QString problem;
        auto first = Store::open(name, &problem);
        QVERIFY(first->write({{path, "a", 1}}));
        QVERIFY(!Store::open(name, &problem));
        QVERIFY2(problem.contains("in use"), qPrintable(problem));
        first.reset();
        const auto second = Store::open(name, &problem);
        QVERIFY2(second, qPrintable(problem));
        QCOMPARE(second->read(path, "a")->value, QVariant(1));
    }
    void survivesBeingKilled()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath("controller.db");
        int next = 0;
        for (int round = 0; round < 8; ++round) {
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(),
                         {"--write", name, QString::number(next)});
            QByteArray said;
            for (int lines = 0; lines < 5 + 7 * round; lines = said.count('\n')) {
                QVERIFY2(writer.waitForReadyRead(60000), writer.readAllStandardError().constData());
                said += writer.readAllStandardOutput();
            }
            writer.kill();
            QVERIFY(writer.waitForFinished(60000));
            said += writer.readAllStandardOutput();
            said.truncate(said.lastIndexOf('\n'));
            next = said.mid(said.lastIndexOf('\n') + 1).toInt() + 1;

            QString problem;
            const auto store = Store::open(name, &problem);
            QVERIFY2(store, qPrintable(problem));
            const auto all = store->readAll(path);
            QVERIFY(all.has_value());
            for (int i = 0; i < next; ++i)
                QVERIFY2(all->count(QString::number(i)) == 1, "an acknowledged value is gone");
        }
    }
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "--write")
        return writeForEver(arguments.value(2), arguments.value(3).toInt());
    tst_StoreFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_storefile.moc"
