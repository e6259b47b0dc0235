#include <QTemporaryDir>
#include <sqlite3.h>

#include "bench/bench.h"
#include "bench/rawstore.h"
#include "book/records/columns.h"
#include "book/records/seambook.h"

using namespace welmo::book;

namespace bench {

namespace {

constexpr int records = 100000;
constexpr int shown = 500; // in the page's list
constexpr int seconds = 30; // of a weld

Samples oneSecond(int turn)
{
    Samples samples;
    for (int i = 0; i < Course::fullRate; ++i)
        samples.append({180 + (turn * 7 + i * 3) % 9 * 0.4, 20.1, 6});
    return samples;
}

Seam weld()
{
    Seam seam;
    seam.started = 1700000000000;
    seam.program = QStringLiteral("vgroove");
    seam.weldFile = QStringLiteral("arcdata");
    seam.ended = ending::regular;
    return seam;
}

/// A book, and a plain store beside it.
class Shelf
{
public:
    Shelf()
    {
        QString problem;
        auto database = Database::open(file(), Database::ReadWrite, &problem);
        if (!database)
            qFatal("%s", qPrintable(problem));
        m_book = std::make_unique<SeamBook>(std::move(database));
    }

    SeamBook &book() { return *m_book; }
    RawStore &raw() { return m_raw; }
    QString file() const { return m_folder.filePath(QStringLiteral("book.db")); }

    Seam begin()
    {
        Seam seam = weld();
        if (!m_book->begin(&seam))
            qFatal("no record");
        return seam;
    }
    void fill(int count)
    {
        begin();
        QStringList names, values;
        for (const Column &column : seamColumns()) {
            names.append(column.name);
            values.append(column.name);
        }
        const auto vary = [&](const char *name, const char *value) {
            values[names.indexOf(QLatin1String(name))] = QString::fromLatin1(value);
        };
        vary("started", "started + 60000 * i");
        vary("program", "program || (i % 20)");
        vary("weld_file", "weld_file || (i % 40)");
        vary("verdict", "i % 4");
        const QString sql = QStringLiteral(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1)"
            " INSERT INTO seam (%2) SELECT %3 FROM n, seam WHERE id = 1");
        if (!m_book->database().run(
                sql.arg(count).arg(names.join(QLatin1Char(',')), values.join(QLatin1Char(',')))))
            qFatal("%s", qPrintable(m_book->errorText()));
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<SeamBook> m_book;
    RawStore m_raw{m_folder.filePath(QStringLiteral("raw.db"))};
};

/// The newest records by SQLite's own interface, each value of them looked at.
class PlainList
{
public:
    explicit PlainList(const QString &file)
    {
        const QByteArray sql = "SELECT * FROM seam ORDER BY started DESC LIMIT 500";
        if (sqlite3_open(file.toUtf8(), &m_database) != SQLITE_OK
            || sqlite3_prepare_v2(m_database, sql, -1, &m_list, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(m_database));
    }
    ~PlainList()
    {
        sqlite3_finalize(m_list);
        sqlite3_close(m_database);
    }
    PlainList(const PlainList &) = delete;
    PlainList &operator=(const PlainList &) = delete;

    int bytes()
    {
        int sum = 0;
        while (sqlite3_step(m_list) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(m_list); ++i)
                sum += sqlite3_column_bytes(m_list, i);
        }
        sqlite3_reset(m_list);
        return sum;
    }

private:
    sqlite3 *m_database = nullptr;
    sqlite3_stmt *m_list = nullptr;
};

void recording(Bench &bench)
{
    Shelf shelf;
    const Seam open = shelf.begin();
    int turn = 0;
    const auto rawWrite = [&](int size) {
        const QByteArray value(size, char('a' + ++turn % 2));
        return cost([&] { shelf.raw().write("course", "1", value); });
    };
    const QString floor = QStringLiteral("a plain SQLite write of as many bytes");
    const int second = packed(oneSecond(0)).size();
    bench.row(
        QStringLiteral("record a second of samples"), floor,
        [&] {
            const Samples more = oneSecond(++turn);
            return cost([&] { shelf.book().append(open.id, more); });
        },
        [&] { return rawWrite(second); });
    bench.row(
        QStringLiteral("close a weld's record, 30 s"), floor,
        [&] {
            const Seam seam = shelf.begin();
            for (int i = 0; i < seconds; ++i)
                shelf.book().append(seam.id, oneSecond(i));
            return cost([&] { shelf.book().finish(seam); });
        },
        [&] { return rawWrite(seconds * second); });
}

} // namespace

void book(Bench &bench)
{
    recording(bench);
    const QString what = QStringLiteral("open the list at 100,000 welds");
    if (!bench.wants(what)
        || bench.leavesOut(what)) // to fill it takes too long where it is counted
        return;
    Shelf shelf;
    shelf.fill(bench.isQuick() ? shown : records);
    PlainList plain(shelf.file());
    bench.row(
        what, QStringLiteral("the same 500 rows by plain SQLite"),
        [&] {
            return cost([&] {
                SeamBook &book = shelf.book();
                const int found = book.list({}, shown).size();
                if (found != shown || book.count({}) < found || book.programs().isEmpty()
                    || book.files().isEmpty())
                    qFatal("the list is not whole");
            });
        },
        [&] {
            return cost([&] {
                if (plain.bytes() == 0)
                    qFatal("no rows");
            });
        });
}

} // namespace bench
