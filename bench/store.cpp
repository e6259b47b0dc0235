#include <QSemaphore>
#include <QThread>

#include "bench/bench.h"
#include "bench/connectedhost.h"
#include "bench/fleet/localbroker.h"
#include "bench/rawstore.h"
#include "bench/roundtrip.h"
#include "cell.h"
#include "controller/core/json.h"
#include "link/embedded/embeddedlink.h"
#include "link/mqtt/mqttlink.h"
#include "loopback.h"

namespace bench {

namespace {

const QString filesNode = QStringLiteral("arc_weld.weave_param");
const QString file = QStringLiteral("weavedata1");

void demand(const XService::Answer &answer)
{
    if (answer->getInt(-1) != 0)
        qFatal("the controller refused");
}

/// Runs work on a thread and waits for it, as every call across threads must.
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

/// One parameter file in the controller's store and, with the same bytes, in a plain one.
struct Stores
{
    ConnectedHost host;
    RawStore raw{host.folder.filePath(QStringLiteral("raw.db"))};
    kelp::ModuleObject content{file};
    QByteArray path = filesNode.toUtf8();
    QByteArray key = file.toUtf8();

    explicit Stores(std::unique_ptr<tessa::ControllerLink> link)
        : host(std::move(link))
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
            m_json[i] = welmo::controller::toJson(values);
        }
        write();
        rawWrite();
    }

    void read()
    {
        const auto answer = host.service()->get(nullptr, filesNode, file);
        if (!answer->hasCmobj(QStringLiteral("name")))
            qFatal("the file is not there");
    }
    // Different bytes each time, since equal ones are not written.
    void write()
    {
        content.set(nullptr, QStringLiteral("annotation"), m_letters.at(++m_ourTurn % 2));
        demand(host.service()->set(nullptr, filesNode, file, &content));
    }
    void subscribe()
    {
        host.service()->watch(nullptr, filesNode, false);
        host.service()->watch(nullptr, filesNode, true);
    }
    void rawRead() { raw.read(path, key); }
    QByteArray json() const { return m_json[0]; }
    void rawWrite() { raw.write(path, key, m_json[++m_floorTurn % 2]); }

private:
    const QStringList m_letters{QStringLiteral("a"), QStringLiteral("b")};
    QByteArray m_json[2];
    int m_ourTurn = 0;
    int m_floorTurn = 0;
};

using Work = std::function<void()>;

Trial timed(const Work &work)
{
    return [work] { return cost(work); };
}

void embedded(Bench &bench)
{
    const QTemporaryDir folder;
    welmo::links::EmbeddedLink::Options options;
    options.dataFolder = folder.path();
    Stores stores(std::make_unique<welmo::links::EmbeddedLink>(options));
    Hop hop;
    const Work plain = [&] { stores.rawRead(); };
    const Work across = [&] { hop.run(plain); };
    const QString read = QStringLiteral("a plain SQLite read");
    const QString threaded = QStringLiteral("the same read on another thread");
    for (const auto &[floor, floorWork] : {std::pair(read, plain), std::pair(threaded, across)}) {
        bench.row(QStringLiteral("get a file, embedded"), floor, timed([&] { stores.read(); }),
                  timed(floorWork));
        bench.row(QStringLiteral("watch a node, embedded"), floor,
                  timed([&] { stores.subscribe(); }), timed(floorWork));
    }
    bench.row(QStringLiteral("set a file, embedded"),
              QStringLiteral("a plain SQLite write (WAL, synchronous FULL)"),
              timed([&] { stores.write(); }), timed([&] { stores.rawWrite(); }));
}

void overBroker(Bench &bench)
{
    // What is counted is slow, and a slow link counts as lost.
    if (bench.leavesOut(QStringLiteral("get, watch and set over MQTT")))
        return;
    const QTemporaryDir folder;
    const fleet::LocalBroker broker(loopback::freePort());
    while (!loopback::accepts(broker.address().port)) { }
    welmo::links::CellService::Options options;
    options.cell = QStringLiteral("cell");
    options.address = broker.address();
    options.dataFolder = folder.path();
    options.roles =
        welmo::links::Roles({{QStringLiteral("nobody"), welmo::links::Role::Administrator}});
    const ::Cell cell(options);
    Stores stores(std::make_unique<welmo::links::MqttLink>(
        welmo::links::MqttLink::Options{broker.address(), options.cell}));
    RoundTrip trip(broker.address().port);
    const QByteArray json = stores.json();
    const Work read = [&] { trip.run(stores.path, json, [&] { stores.rawRead(); }); };
    const QString floor = QStringLiteral("a mosquitto round trip to a plain SQLite %1");
    bench.row(QStringLiteral("get a file, MQTT"), floor.arg(QStringLiteral("read")),
              timed([&] { stores.read(); }), timed(read));
    bench.row(QStringLiteral("watch a node, MQTT"), floor.arg(QStringLiteral("read")),
              timed([&] { stores.subscribe(); }), timed(read));
    bench.row(QStringLiteral("set a file, MQTT"), floor.arg(QStringLiteral("write")),
              timed([&] { stores.write(); }),
              timed([&] { trip.run(json, stores.path, [&] { stores.rawWrite(); }); }));
}

} // namespace

void store(Bench &bench)
{
    embedded(bench);
    overBroker(bench);
}

} // namespace bench
