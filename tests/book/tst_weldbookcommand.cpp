#include <QBuffer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include "book/records/seambook.h"
#include "support/datarows.h"
#include "support/files.h"
#include "tools/weldbook/commands.h"

using namespace welmo::book;
using namespace testsupport;

/// The weld book from a shell, as it is called.
class tst_WeldbookCommand : public QObject
{
    Q_OBJECT
    QTemporaryDir m_folder;

    int run(const QString &call, QByteArray *out, QString *problem)
    {
        QBuffer buffer(out);
        buffer.open(QIODevice::WriteOnly);
        QString line = call;
        line.replace("DATA", m_folder.path());
        return runCommand(line.split(' '), &buffer, problem);
    }

private slots:
    void initTestCase()
    {
        QDir(m_folder.path()).mkdir("weldbook");
        QString problem;
        SeamBook book(Database::open(m_folder.filePath("weldbook/weldbook.db"), Database::ReadWrite,
                                     &problem));
        for (const char *program : {"a.tl", "b, \"c\".tl"}) {
            Seam seam;
            seam.started = 1700000000000;
            seam.utcOffset = 60;
            seam.program = program;
            seam.weldFile = "arcdata1";
            seam.verdict = Verdict::Red;
            seam.arcTime = 1;
            QVERIFY(book.begin(&seam) && book.append(seam.id, Samples(10)));
            seam.ended = ending::regular;
            QVERIFY(book.finish(seam));
        }
        // A copy with its records' pages overwritten; they follow the first, which names the
        // tables.
        QVERIFY(book.database().run("PRAGMA wal_checkpoint(TRUNCATE)"));
        QByteArray bytes = contentOf(m_folder.filePath("weldbook/weldbook.db"));
        bytes.replace(4096, bytes.size() - 4096, QByteArray(bytes.size() - 4096, 'x'));
        QDir(m_folder.path()).mkpath("damaged/weldbook");
        writeFile(m_folder.filePath("damaged/weldbook/weldbook.db"), bytes);
    }
    void calls_data()
    {
        // the status; in what it writes, or in its complaint
        addRows<int, QString>(
            {{"list --data DATA", 0, "2023-11-14T23:13:20+01:00  red    a.tl:0  arcdata1"},
             {"list --data DATA --program a.tl --verdict green", 0, ""},
             {"show 1 --data DATA", 0, "started          2023-11-14T23:13:20.000+01:00"},
             {"export --data DATA", 0, "\"b, \"\"c\"\".tl\""},
             {"export --data DATA --from 2023-11-16", 0, "heat_input [kJ/mm]"},
             {"verify --data DATA", 0, "2 records, nothing is damaged"},
             {"show 3 --data DATA", 2, "there is no weld '3'"},
             {"list", 2, "needs either --data DIR or --database URL"},
             {"list --data DATA --database postgresql://a@h/n", 2, "needs either"},
             {"list --database postgresql://a@h", 2, "'postgresql://a@h' is no address"},
             {"list --database postgresql://a:secret@h/n", 2, "'postgresql://a@h/n' must not"},
             {"list --database postgresql://a@127.0.0.1:1/n", 1, "127.0.0.1:1/n: cannot be opened"},
             {"list --data DATA/none", 1, "there is no such file"},
             {"list --data DATA --from 14.11.2023", 2, "'14.11.2023' is no day"},
             {"export --data DATA --format xml", 2, "'xml' is neither"},
             {"export --data DATA --output DATA/none/a.csv", 2, "none/a.csv: "},
             {"export --data DATA --output /dev/full", 1, "No space left"},
             {"list --data DATA/damaged", 1, "weldbook.db: cannot be read"},
             {"show 1 --data DATA/damaged", 1, "weldbook.db: cannot be read"},
             {"verify --data DATA/damaged", 1, "the book is damaged"},
             {"report --data DATA", 2, "needs --output"},
             {"weld", 2, "unknown command 'weld'"},
             {"list --color", 2, "color"}});
    }
    void calls()
    {
        const auto &[call, status, seen] = currentRow<int, QString>();
        QByteArray out;
        QString problem;
        QCOMPARE(run("weldbook " + call, &out, &problem), status);
        QCOMPARE(problem.isEmpty(), status == 0);
        const QString told = status == 0 ? QString::fromUtf8(out) : problem;
        QVERIFY2(told.contains(seen), qPrintable(told));
        if (seen.isEmpty())
            QVERIFY(told.isEmpty());
    }
    void jsonHasTheCourses()
    {
        QByteArray out;
        QString problem;
        QCOMPARE(run("weldbook export --format json --data DATA", &out, &problem), 0);
        const QJsonObject first =
            QJsonDocument::fromJson(out).object().value("seams").toArray().first().toObject();
        const QJsonObject course = first.value("course").toObject();
        QCOMPARE(course.value("current").toArray().size(), 10);
        QVERIFY(first.value("user").isNull());
    }
};

QTEST_GUILESS_MAIN(tst_WeldbookCommand)
#include "tst_weldbookcommand.moc"
