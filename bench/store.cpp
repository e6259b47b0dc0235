#include <QSemaphore>
#include <QThread>

#include "bench/bench.h"
#include "bench/cell.h"
#include "bench/rawstore.h"
#include "controller/json.h"

namespace bench {

namespace {

const QString filesNode = QStringLiteral("arc_weld.weave_param");
const QString file = QStringLiteral("weavedata1");

void demand(const XService::Answer &answer)
{
    if (answer->getInt(-1) != 0)
        qFatal("the controller refused");
}

/// Carries work to a thread and waits for it: what every call across threads pays.
class Hop
{
public:
    Hop()
    {
        m_place.moveToThread(&m_thread);
        m_thread.start();
    }
    ~Hop()
    {
        m_thread.quit();
        m_thread.wait();
    }

    template<typename Work>
    void run(const Work &work)
    {
        QMetaObject::invokeMethod(
            &m_place,
            [&] {
                work();
                m_done.release();
            },
            Qt::QueuedConnection);
        m_done.acquire();
    }

private:
    QThread m_thread;
    QObject m_place;
    QSemaphore m_done;
};

/// One file of parameters in the controller's store and, the same bytes, in a plain one.
struct Stores
{
    Cell cell;
    RawStore raw{cell.folder.filePath(QStringLiteral("raw.db"))};
    kelp::ModuleObject content{file};
    QByteArray path = filesNode.toUtf8();
    QByteArray key = file.toUtf8();
    Hop hop;

    Stores()
    {
        QVariantMap values{{"name", file},
                           {"annotation", "a"},
                           {"weave_length_frequency", 1.5},
                           {"weaving_reference", "cycle"},
                           {"pattern", "sine"},
                           {"radius", 2.5},
                           {"amplitude", QVariantMap{{"left", 2.5}, {"right", 2.5}}},
                           {"dwell_time", QVariantList{100, 0, 100}},
                           {"dwell_type", "robot_stay"},
                           {"elevation_angle", QVariantMap{{"left", 0.0}, {"right", 0.0}}},
                           {"elevation_type", "v_pattern"},
                           {"inclination_angle", 0.0},
                           {"phase_invert", false}};
        content.importFromVariant(nullptr, values, false);
        for (int i = 0; i < 2; ++i) {
            values.insert(QStringLiteral("annotation"), m_letters[i]);
            m_json[i] = controller::toJson(values);
        }
        write();
        rawWrite();
    }

    void read()
    {
        const auto answer = cell.service()->get(nullptr, filesNode, file);
        if (!answer->hasCmobj(QStringLiteral("name")))
            qFatal("the file is not there");
    }
    // Other bytes each time: what stays the same is not written at all.
    void write()
    {
        content.set(nullptr, QStringLiteral("annotation"), m_letters.at(++m_ourTurn % 2));
        demand(cell.service()->set(nullptr, filesNode, file, &content));
    }
    void subscribe()
    {
        cell.service()->watch(nullptr, filesNode, false);
        cell.service()->watch(nullptr, filesNode, true);
    }
    void rawRead() { raw.read(path, key); }
    void rawWrite() { raw.write(path, key, m_json[++m_floorTurn % 2]); }

private:
    const QStringList m_letters{QStringLiteral("a"), QStringLiteral("b")};
    QByteArray m_json[2];
    int m_ourTurn = 0;
    int m_floorTurn = 0;
};

} // namespace

void store(Bench &bench)
{
    Stores stores;
    const Trial get = [&] { return microseconds([&] { stores.read(); }); };
    const Trial watch = [&] { return microseconds([&] { stores.subscribe(); }); };
    const Trial plain = [&] { return microseconds([&] { stores.rawRead(); }); };
    const Trial across = [&] {
        return microseconds([&] { stores.hop.run([&] { stores.rawRead(); }); });
    };
    const QString read = QStringLiteral("a plain SQLite read");
    const QString threaded = QStringLiteral("the same read on another thread");
    bench.row(QStringLiteral("get a file, embedded"), read, get, plain);
    bench.row(QStringLiteral("get a file, embedded"), threaded, get, across);
    bench.row(QStringLiteral("watch a node, embedded"), read, watch, plain);
    bench.row(QStringLiteral("watch a node, embedded"), threaded, watch, across);
    bench.row(
        QStringLiteral("set a file, embedded"),
        QStringLiteral("a plain SQLite write (WAL, synchronous FULL)"),
        [&] { return microseconds([&] { stores.write(); }); },
        [&] { return microseconds([&] { stores.rawWrite(); }); });
}

} // namespace bench
