#include <functional>

#include "book/plant/plantbook.h"
#include "book/plant/seamcontent.h"
#include "broker.h"
#include "cell.h"
#include "controller/core/json.h"
#include "databaseserver.h"
#include "link/mqtt/plantreader.h"
#include "pendant.h"
#include "support/datarows.h"
#include "support/files.h"
#include "tools/controllerd/recording.h"

using namespace testsupport;
using namespace welmo::book;
using welmo::links::PlantReader;
namespace protocol = welmo::links::protocol;

namespace {

/// A program of ours that is ended without a warning.
struct Program : QProcess
{
    Program(const QString &program, const QStringList &arguments, const QString &user)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("WELMO_BROKER_PASSWORD", Broker::shared().as(user).password);
        setProcessEnvironment(environment);
        const Broker &broker = program == RECORDER ? Broker::central() : Broker::shared();
        const QString url = QStringLiteral("mqtt://%1@127.0.0.1:%2");
        start(program, QStringList(arguments) << "--broker" << url.arg(user).arg(broker.port()));
    }
    ~Program() override { cut(); }
    void cut()
    {
        kill();
        waitForFinished();
    }
};

/// An empty book of a plant, in a file or at a server.
struct Book
{
    QTemporaryDir folder;
    const QString address;

    explicit Book(bool atServer)
        : address(atServer ? DatabaseServer::shared().fresh() : QString())
    { }
    Place place() const
    {
        Place place = folder.filePath("plant.db");
        if (!address.isEmpty() && !parsePlace(address, &place).isEmpty())
            qFatal("%s is no address", qPrintable(address));
        return place;
    }
    QStringList arguments() const
    {
        return address.isEmpty() ? QStringList{"--data", folder.path()}
                                 : QStringList{"--database", address};
    }
};

/// A cell and a recorder as they are shipped, and somebody who changes files.
struct Scene
{
    const Book book;
    QTemporaryDir folder;
    Broker &broker = Broker::shared();
    const bool isListed = [this] {
        writeFile(folder.filePath("users"), "anna administrator\n");
        return true;
    }();
    Program cell{CONTROLLERD, {"--cell", "cell", "--data", folder.path()}, "cell"};
    Program recorder{RECORDER, book.arguments(), "plant"};
    Pendant anna{broker.as("anna")};
    QStringList saved;
    std::unique_ptr<Database> reader;

    explicit Scene(bool atServer)
        : book(atServer)
    { }
    bool change()
    {
        for (int i = 0; i < 3; ++i) {
            saved.append(fileName(1 + saved.size()));
            // The cell may have given up a pendant that had to wait for a database.
            if (!QTest::qWaitFor([this] { return anna.get().fromController(); }, patient)
                || anna.save(saved.size(), 10 + saved.size()).code != 0)
                return false;
        }
        return true;
    }
    /// The changed files, as they are in the plant's book, in order.
    QStringList stored()
    {
        QString problem;
        if (!reader)
            reader = Database::open(book.place(), Database::ReadOnly, &problem, plantSchema());
        QStringList files;
        if (!reader)
            return files;
        QSqlQuery query = reader->select("SELECT entry FROM change ORDER BY log, sequence");
        while (reader->next(query))
            files.append(query.value(0).toString());
        return files;
    }
};

PlantBook::Entry entry(qint64 sequence, qint64 after, const QString &kind = kind::state,
                       qint64 dropped = 0)
{
    return {"cell", "log", sequence, after, dropped, kind, {{"state", "idle"}, {"time", 1}}};
}

} // namespace

/// What a cell hands over comes to its plant's book, once.
class tst_Recorder : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        Broker &broker = Broker::central();
        broker.stop();
        broker.command({"recorder", broker.folder(), "plant"}, "tnalp\n");
        broker.start();
    }

    void whateverFails_data()
    {
        using Step = std::function<void(Scene &)>;
        std::vector<Row<Step, Step>> failures{
            {"recorder", [](Scene &s) { s.recorder.cut(); }, [](Scene &s) { s.recorder.start(); }},
            {"cell", [](Scene &s) { s.cell.cut(); }, [](Scene &s) { s.cell.start(); }},
            {"broker", [](Scene &s) { s.broker.stop(); }, [](Scene &s) { s.broker.start(); }},
            {"all",
             [](Scene &s) {
                 s.recorder.cut();
                 QVERIFY(s.change());
                 s.cell.cut();
                 s.broker.stop();
             },
             [](Scene &s) {
                 s.broker.start();
                 s.cell.start();
                 s.recorder.start();
             }}};
        if (Proxy *bridge = Broker::shared().bridge())
            failures = {{"central broker", [](Scene &) { Broker::central().stop(); },
                         [](Scene &) { Broker::central().start(); }},
                        {"bridge parted", [bridge](Scene &) { bridge->swallow(true); },
                         [bridge](Scene &) { bridge->swallow(false); }},
                        failures.back()};
        std::vector<Row<Step, Step, bool>> rows{
            {"server",
             [](Scene &s) {
                 QTRY_COMPARE_WITH_TIMEOUT(s.stored(), s.saved, patient); // it has started
                 DatabaseServer::shared().stop();
             },
             [](Scene &) { DatabaseServer::shared().start(); }, true}};
        for (const auto &[name, fail, mend] : failures) {
            rows.push_back({name, fail, mend, false});
            rows.push_back({name + ", PostgreSQL", fail, mend, true});
        }
        addRows(rows);
    }
    // Also with a second recorder on the same book.
    void whateverFails()
    {
        using Step = std::function<void(Scene &)>;
        const auto &[name, fail, mend, atServer] = currentRow<Step, Step, bool>();
        Scene scene(atServer);
        QVERIFY(scene.anna.comeUp() && scene.change());
        fail(scene);
        const bool isCellLost =
            name.startsWith("cell") || name.startsWith("broker") || name.startsWith("all");
        QVERIFY(isCellLost ? scene.anna.waitUp(false) : scene.change());
        mend(scene);
        QTRY_COMPARE_WITH_TIMEOUT(scene.stored(), scene.saved, patient);
        const Program second(RECORDER, scene.book.arguments(), "plant");
        QVERIFY(scene.change());
        QTRY_COMPARE_WITH_TIMEOUT(scene.stored(), scene.saved, patient);
    }

    void twoRecordersAndOneBook_data()
    {
        // what comes; whether something is missing; how far, and how much is stored when it came
        // to the other as well
        using Entries = QVector<PlantBook::Entry>;
        PlantBook::Entry strange = entry(1, 0);
        strange.content = {{"time", "soon"}, {"state", QString("a") + QChar(0)}};
        const std::vector<Row<Entries, bool, int, int>> cases{
            {"in order", {entry(1, 0), entry(2, 1), entry(3, 2)}, false, 3, 3},
            {"twice", {entry(1, 0), entry(1, 0), entry(2, 1), entry(1, 0)}, false, 2, 2},
            {"out of order", {entry(1, 0), entry(3, 2), entry(2, 1)}, true, 3, 3},
            {"after dropped ones", {entry(301, 0, kind::state, 300)}, false, 301, 1},
            {"of an unknown kind", {entry(1, 0, "news"), entry(2, 1)}, false, 2, 1},
            {"of damaged values", {strange}, false, 1, 1},
            {"no seam", {entry(1, 0, kind::seam), entry(2, 1)}, false, 2, 1}};
        std::vector<Row<Entries, bool, int, int, bool>> rows;
        for (const auto &[name, entries, gap, last, count] : cases) {
            rows.push_back({name, entries, gap, last, count, false});
            rows.push_back({name + ", PostgreSQL", entries, gap, last, count, true});
        }
        addRows(rows);
    }
    void twoRecordersAndOneBook()
    {
        const auto &[name, entries, gap, last, count, atServer] =
            currentRow<QVector<PlantBook::Entry>, bool, int, int, bool>();
        const Book book(atServer);
        QString problem;
        const auto one = PlantBook::open(book.place(), &problem);
        const auto other = PlantBook::open(book.place(), &problem);
        const PlantBook::Taken before = one->take(entries).value().first();
        const PlantBook::Taken after = other->take(entries).value().first();
        QCOMPARE(before.gap, gap);
        QCOMPARE(before.lost, entries.first().dropped);
        QCOMPARE(after.lost, 0);
        QCOMPARE(after.sequence, qint64(last));
        QCOMPARE(one->seams().database().value("SELECT count(*) FROM state").toInt(), count);
    }
    void aFullOutboxDropsTheOldest()
    {
        const QTemporaryDir folder;
        QString problem, log;
        for (const int bytes : {10, 10, 40}) {
            const auto box = Outbox::open(folder.filePath("outbox.db"), &problem, {5, 100});
            QVERIFY(log.isEmpty() || log == box->log());
            log = box->log();
            for (int i = 0; i < 3; ++i)
                QVERIFY(box->add("state", QByteArray(bytes, 'x')));
            QCOMPARE(box->dropped(), box->newest() - (bytes == 40 ? 2 : qMin(box->newest(), 5LL)));
        }
        const auto box = Outbox::open(folder.filePath("outbox.db"), &problem, {5, 100});
        QCOMPARE(box->after(0, 20).last().after, 8);
        QVERIFY(box->forgetUpTo(8) && box->after(0, 20).first().after == 0);
    }
    // A short one from its notifications on, and a long one.
    void seams()
    {
        const QTemporaryDir folder;
        QString problem;
        const auto box = Outbox::open(folder.filePath("outbox.db"), &problem, {});
        welmo::links::CellService service(Cell::options({}));
        const controllerd::Recording recording(&service, "cell", folder.path());
        for (const char *phase : {"ignition", "welding", "crater", "idle"})
            emit service.notified("arc_weld.welder_state", QVariantMap{{"phase", phase}});
        QTRY_COMPARE_WITH_TIMEOUT(box->after(0, 20).size(), 1, patient);
        const QByteArray written = box->after(0, 20).first().content;

        Seam longOne;
        longOne.started = 1;
        longOne.ended = ending::stopped;
        Samples samples;
        QRandomGenerator noise(1); // which cannot be packed well
        for (int i = 0; i < 20000; ++i)
            samples.append({noise.bounded(400.0), noise.bounded(40.0), noise.bounded(10.0)});
        const auto book = PlantBook::open(folder.filePath("plant.db"), &problem);
        int sequence = 0;
        for (const QVariantMap &content :
             {welmo::controller::fromJson(written)->toMap(), toContent(longOne, samples)}) {
            const auto sent = protocol::toRecord(
                toMessage(protocol::Record{"log", ++sequence, 0, 0, kind::seam, content}));
            QVERIFY(sent);
            QVERIFY(book->take({{"north", sent->log, sequence, 0, 0, sent->kind, sent->content}}));
        }
        const auto seams = book->seams().list({});
        QCOMPARE(seams.size(), 2);
        QCOMPARE(seams.first().cell, QString("north"));
        QCOMPARE(seams.first().ended, ending::regular);
        QCOMPARE(packed(book->seams().course(seams.last().id).samples), packed(samples));
    }
    // What is told of a day; also when the seams are older than the sums.
    void sumsAndLists_data() { addRows<bool>({{"SQLite", false}, {"PostgreSQL", true}}); }
    void sumsAndLists()
    {
        const bool atServer = std::get<1>(currentRow<bool>());
        const Book place(atServer);
        QString problem;
        auto book = PlantBook::open(place.place(), &problem);
        constexpr qint64 noon = 472223 * hourMs;
        QVector<PlantBook::Entry> entries;
        const auto add = [&](const QString &cell, const QString &kind, const QVariantMap &content) {
            entries.append({cell, "log", entries.size() + 1, 0, 0, kind, content});
        };
        for (const qint64 started : {noon, noon + hourMs - 1, noon + hourMs}) {
            Seam seam;
            seam.started = started;
            seam.ended = ending::regular;
            seam.arcTime = 10;
            seam.wire = 0.5;
            add("north", kind::seam, toContent(seam, {}));
            seam.verdict = Verdict::Red;
            add("south", kind::seam, toContent(seam, {}));
            const QVariantList list{started, "a"};
            add("north", kind::alarm, {{"time", started}, {"code", "7"}, {"arguments", list}});
            add("south", kind::change, {{"time", started}, {"user", "anna"}, {"changes", list}});
        }
        QVERIFY(book->take(entries));
        for (const bool old : {false, true}) {
            auto &database = book->seams().database();
            if (old) {
                QVERIFY(database.run("DROP TABLE seamsum"));
                QVERIFY(database.run(atServer ? "UPDATE about SET version = 1"
                                              : "PRAGMA user_version = 1"));
                book = PlantBook::open(place.place(), &problem);
            }
            QStringList sums;
            for (const auto &sum : book->sums(noon, noon + hourMs)
                     + book->sums(0, 2 * noon, "south", PlantBook::SumOf::Hour)
                     + book->sums(0, 2 * noon, {}, PlantBook::SumOf::Cell))
                sums.append(QStringLiteral("%1 %2: %3, %4 s, %5 m, %6")
                                .arg(sum.cell)
                                .arg(sum.hour / hourMs)
                                .arg(sum.count)
                                .arg(sum.arcTime)
                                .arg(sum.wire)
                                .arg(int(sum.verdict)));
            const QStringList expected{
                "north 472223: 2, 20 s, 1 m, 0", "south 472223: 2, 20 s, 1 m, 3",
                " 472223: 2, 20 s, 1 m, 3",      " 472224: 1, 10 s, 0.5 m, 3",
                "north 0: 3, 30 s, 1.5 m, 0",    "south 0: 3, 30 s, 1.5 m, 3"};
            QCOMPARE(sums, expected);
        }
        QCOMPARE(book->seams().thin(noon + hourMs, SeamBook::anySize), 4);
        QCOMPARE(book->seams().thin(noon + hourMs, SeamBook::anySize), 0);
        QCOMPARE(book->seams().course(book->seams().list({}).last().id).rate, Course::thinRate);
        const auto alarms = book->alarms(noon, noon + hourMs, "north", 1);
        QCOMPARE(alarms.size(), 1);
        QCOMPARE(alarms.first().arguments, QVariantList({noon + hourMs - 1, "a"}));
        QCOMPARE(book->alarms(0, 2 * noon, "south", 9).size(), 0);
        const auto changes = book->changes(noon, noon + hourMs, {}, 9);
        QCOMPARE(changes.size(), 2);
        QCOMPARE(changes.last().user, QString("anna"));
    }
    // Cells of a line whose broker died are gone for the plant, and come back at the standby.
    void atACentralBroker()
    {
        Broker central;
        Broker lines[2];
        auto way = lines[0].as("cell");
        way.standbys = {{way.host, lines[1].port()}};
        central.stop();
        central.command({"recorder", central.folder(), "plant"}, "tnalp\n");
        for (Broker &line : lines) {
            const QString name = &line == lines ? "line" : "standby";
            const QString url = QStringLiteral("mqtt://127.0.0.1:%1").arg(central.port());
            line.stop();
            central.command({"line", central.folder(), name}, "secret\n");
            line.command({"bridge", line.folder(), name, url}, "secret\n");
        }
        for (Broker *broker : {&central, &lines[0], &lines[1]})
            broker->start();
        const QTemporaryDir folder;
        const Cell cell(Cell::options(way));
        const controllerd::Recording recording(cell.service(), "cell", folder.path());
        PlantReader reader({central.as("plant"), {"arc_weld.weld_mode"}});
        QStringList heard;
        connect(&reader, &PlantReader::came, this, [&] {
            heard.append("came");
            reader.take("cell", {{}, 0, true});
        });
        connect(&reader, &PlantReader::gone, this, [&] { heard.append("gone"); });
        connect(&reader, &PlantReader::recorded, this, [&] { heard.append("record"); });
        connect(&reader, &PlantReader::valueTold, this, [&] { heard.append("value"); });
        reader.start();
        for (const QString &end : QStringList{"gone", ""}) {
            for (const char *word : {"came", "value", "record"})
                QTRY_VERIFY_WITH_TIMEOUT(heard.contains(word), patient);
            heard.clear();
            if (!end.isEmpty())
                lines[0].stop();
            QTRY_VERIFY_WITH_TIMEOUT(end.isEmpty() || heard.contains(end), patient);
        }
    }
};

QTEST_GUILESS_MAIN(tst_Recorder)
#include "tst_recorder.moc"
