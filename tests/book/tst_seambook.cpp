#include <QtTest>

#include "book/records/bookthread.h"
#include "controller/recordeddisk.h"
#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;
using namespace welmo::book;

namespace {

std::unique_ptr<SeamBook> openBook(const QString &file)
{
    QString problem;
    auto database = Database::open(file, Database::ReadWrite, &problem);
    if (!database)
        qFatal("%s", qPrintable(problem));
    return std::make_unique<SeamBook>(std::move(database));
}

Seam seamAt(qint64 started, const QString &program = "a.tl")
{
    Seam seam;
    seam.started = started;
    seam.program = program;
    seam.weldFile = "arcdata1";
    seam.efficiency = 0.8;
    return seam;
}

Samples samplesOf(int count, double current)
{
    return Samples(count, Sample{current, 20.5, 6});
}

/// What must not get fewer: records, finished ones, samples.
std::array<int, 3> countsIn(SeamBook &book)
{
    std::array<int, 3> counts{};
    for (const Seam &seam : book.list({})) {
        ++counts[0];
        counts[1] += seam.ended == ending::regular;
        counts[2] += book.course(seam.id).samples.size();
    }
    return counts;
}

} // namespace

/// What is kept, and what is left of it when the power goes.
class tst_SeamBook : public QObject
{
    Q_OBJECT
private slots:
    void aRecordComesBackAsItWas()
    {
        const QTemporaryDir folder;
        Seam seam = seamAt(1700000000123);
        {
            const auto book = openBook(folder.filePath("book.db"));
            QVERIFY(book->begin(&seam));
            for (int i = 0; i < 3; ++i)
                QVERIFY(book->append(seam.id, samplesOf(10, 100 + i)));
            seam.ended = ending::alarm;
            seam.alarm = QString::fromUtf8("电弧 broke");
            seam.wire = 1.25;
            seam.voltage = {20, 19, 21, 0.5};
            seam.verdict = Verdict::Red;
            QVERIFY(book->finish(seam));
        }
        const auto book = openBook(folder.filePath("book.db"));
        const auto kept = book->seam(seam.id);
        QVERIFY(kept);
        QCOMPARE(kept->alarm, seam.alarm);
        QCOMPARE(*kept->wire, 1.25);
        QVERIFY(!kept->heatInput);
        QCOMPARE(kept->voltage.deviation, 0.5);
        const Course course = book->course(seam.id);
        QCOMPARE(course.samples.size(), 30);
        QCOMPARE(course.samples[29].current, 102.0);
        QCOMPARE(course.samples[0].voltage, 20.5);
    }
    void filters()
    {
        const QTemporaryDir folder;
        const auto book = openBook(folder.filePath("book.db"));
        for (int i = 0; i < 10; ++i) {
            Seam seam = seamAt(qint64(1000) * (i + 1), i % 2 ? "b.tl" : "a.tl");
            seam.verdict = i == 4 ? Verdict::Red : Verdict::Green;
            seam.mode = i == 5 ? "simu" : "real";
            QVERIFY(book->begin(&seam));
        }
        QCOMPARE(book->count({}), 10);
        Filter days;
        days.from = 3000;
        days.until = 6000; // a day that ends as the next one begins
        QCOMPARE(book->count(days), 3);
        Filter program;
        program.program = "b.tl";
        program.realOnly = true;
        QCOMPARE(book->count(program), 4);
        QCOMPARE(book->list(program, 2).first().started, 10000);
        Filter red;
        red.verdict = Verdict::Red;
        QCOMPARE(book->list(red).first().started, 5000);
        QCOMPARE(book->programs(), QStringList({"a.tl", "b.tl"}));
    }
    void oldCoursesAreThinnedAndRecordsStay()
    {
        const QTemporaryDir folder;
        const auto book = openBook(folder.filePath("book.db"));
        for (const qint64 started : {1000, 2000, 3000}) {
            Seam seam = seamAt(started);
            QVERIFY(book->begin(&seam));
            QVERIFY(book->append(seam.id, samplesOf(25, 100)));
            seam.ended = ending::regular;
            QVERIFY(book->finish(seam));
        }
        QCOMPARE(book->thin(2000, 1 << 30), 1);
        QCOMPARE(book->course(1).samples.size(), 3);
        QCOMPARE(book->course(1).rate, Course::thinRate);
        QCOMPARE(book->course(2).samples.size(), 25);
        QCOMPARE(book->thin(2000, 1 << 30), 0);
        QCOMPARE(book->thin(0, 0), 2); // too large: the oldest first, whatever their age
        QCOMPARE(book->count({}), 3);
    }
    void foreignFilesAreLeftAlone_data()
    {
        addRows<QString>(
            {{"CREATE TABLE a (b)", "belongs to another program"},
             {"PRAGMA application_id=2003591787; PRAGMA user_version=99; CREATE TABLE a (b)",
              "newer version"}});
    }
    void foreignFilesAreLeftAlone()
    {
        const auto &[sql, told] = currentRow<QString>();
        const QTemporaryDir folder;
        const QString file = folder.filePath("book.db");
        QVERIFY(runSqlite(file, sql));
        const QByteArray before = contentOf(file);
        QString problem;
        QVERIFY(!Database::open(file, Database::ReadWrite, &problem));
        QVERIFY2(problem.contains(told) && problem.contains("book.db"), qPrintable(problem));
        QCOMPARE(contentOf(file), before);
    }
    void cutAnywhere_data() { RecordedDisk::addCuts(); }
    // The recorder ends before any of its writes: what was acknowledged is there, what was open is
    // closed as interrupted with its course so far.
    void cutAnywhere()
    {
        RecordedDisk disk;
        const std::vector<std::array<int, 3>> counts = weldTwice(&disk);
        QVERIFY(disk.operations() > 30);
        disk.cutAnywhere([&](const QString &folder, int acknowledged) {
            if (acknowledged == 0)
                return; // the book is not there yet
            const auto book = openBook(folder + "/book.db");
            QVERIFY(book->closeInterrupted() >= 0);
            const auto now = countsIn(*book);
            for (size_t i = 0; i < now.size(); ++i)
                QVERIFY(now[i] >= counts[size_t(acknowledged) - 1][i]);
            for (const Seam &seam : book->list({})) {
                QVERIFY(!seam.isOpen());
                QVERIFY(seam.ended == ending::regular
                        || seam.arcTime * 10 == book->course(seam.id).samples.size());
            }
        });
    }
    // Each operation fails once, as on a full disk: that is said, and the book goes on.
    void aDiskThatRefusesIsToldAndTheBookGoesOn()
    {
        RecordedDisk disk;
        int failing = 0, refused = 0;
        for (; disk.operations() >= failing; ++failing) {
            const QTemporaryDir folder;
            const QString file = folder.filePath("book.db");
            openBook(file);
            disk.start(failing);
            QString problem;
            auto database = Database::open(file, Database::ReadWrite, &problem);
            QVERIFY(database || problem.contains("book.db: "));
            if (!database)
                continue;
            SeamBook book(std::move(database));
            Seam seam = seamAt(1000);
            const auto write = [&](const std::function<bool()> &work) {
                if (work())
                    return true;
                ++refused;
                return !book.errorText().isEmpty() && work(); // there is room again
            };
            QVERIFY(write([&] { return book.begin(&seam); }));
            QVERIFY(write([&] { return book.append(seam.id, samplesOf(10, 100)); }));
            seam.ended = ending::regular;
            QVERIFY(write([&] { return book.finish(seam); }));
            QCOMPARE(countsIn(book), (std::array<int, 3>{1, 1, 10}));
        }
        QVERIFY(failing > 5 && refused > 2);
        QString problem;
        QVERIFY(!Database::open(QString("/proc/self/none/book.db"), Database::ReadWrite, &problem));
        QVERIFY2(problem.contains("the folder cannot be created"), qPrintable(problem));
    }
    void aFullQueueDropsWhatMayBeDropped()
    {
        const QTemporaryDir folder;
        QSemaphore gate;
        int done = 0;
        {
            BookThread thread(folder.filePath("book.db"), Database::ReadWrite);
            thread.post([&](SeamBook &) { gate.acquire(); });
            for (int i = 0; i < BookThread::capacity + 5; ++i)
                thread.post([&](SeamBook &) { ++done; }, BookThread::MayBeDropped);
            QCOMPARE(thread.dropped(), 5);
            QVERIFY(thread.post([&](SeamBook &) { ++done; }));
            gate.release();
        }
        QCOMPARE(done, BookThread::capacity + 1);
    }

private:
    static std::vector<std::array<int, 3>> weldTwice(RecordedDisk *disk)
    {
        const QTemporaryDir folder;
        const auto book = openBook(folder.filePath("book.db"));
        std::vector<std::array<int, 3>> counts;
        const auto acknowledge = [&](bool works) {
            if (!works)
                qFatal("the book does not work at all");
            disk->acknowledge();
            counts.push_back(countsIn(*book));
        };
        acknowledge(true);
        for (int i = 0; i < 2; ++i) {
            Seam seam = seamAt(qint64(1000) * i);
            acknowledge(book->begin(&seam));
            for (int part = 0; part < 3; ++part)
                acknowledge(book->append(seam.id, samplesOf(10, 150 + part)));
            seam.ended = ending::regular;
            acknowledge(book->finish(seam));
        }
        return counts;
    }
};

QTEST_GUILESS_MAIN(tst_SeamBook)
#include "tst_seambook.moc"
