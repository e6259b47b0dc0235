#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <csignal>
#include <functional>

#include "broker.h"
#include "callbench.h"
#include "cell.h"
#include "link/mqttlink.h"
#include "proxy.h"
#include "support/rows.h"

using controller::Journal;
using links::MqttLink;

namespace {

constexpr int beatMs = 25;

Broker &broker()
{
    static Broker one;
    return one;
}

/// A cell and a pendant that reach the broker by ways of their own.
struct Scene : CallBench<MqttLink>
{
    Proxy cellWay{broker().port()};
    Proxy pendantWay{broker().port()};
    std::unique_ptr<Cell> cell;
    std::mutex gate; // held: the cell hangs
    QTimer beats;
    int press = 0;

    explicit Scene(const QString &folder = {})
    {
        startCell(folder);
        link = std::make_unique<MqttLink>(MqttLink::Options{by(pendantWay, "anna"), "cell"});
        QObject::connect(&beats, &QTimer::timeout, [this] { link->beat(press); });
    }
    ~Scene() { link.reset(); }

    void startCell(const QString &folder)
    {
        auto options = Cell::options(by(cellWay, "cell"));
        options.dataFolder = folder;
        options.clock = [this, steady = controller::steadyClock()] {
            const std::lock_guard lock(gate);
            return steady();
        };
        cell = std::make_unique<Cell>(options);
    }
    static links::BrokerAddress by(const Proxy &way, const QString &user)
    {
        links::BrokerAddress address = broker().as(user);
        address.port = way.port();
        return address;
    }

    /// A hand on the key for wire: beats, and the command.
    int holdWire()
    {
        ++press;
        beats.start(beatMs);
        link->beat(press);
        return feedWire().code;
    }
    QVector<Journal::Entry> journal() const { return cell->service()->journal().entries(); }
    bool waitStill() const
    {
        return QTest::qWaitFor([&] { return journal().last().event == Journal::Event::WireStops; },
                               patient);
    }
};

/// Of threads and files that this process has open.
int countAll()
{
    int count = 0;
    for (const char *folder : {"/proc/self/task", "/proc/self/fd"})
        count += QDir(folder).entryList(QDir::AllEntries | QDir::System).size();
    return count;
}

} // namespace

/// What goes wrong between a pendant and a cell on the network, by name.
class tst_NetworkFaults : public QObject
{
    Q_OBJECT
private slots:
    void whatIsLostIsNoticedAndComesBack();
    void aServiceThatIsGone();
    void lateBeatsKeepNothingMoving();
};

// With wire under way, which stops, and does not go on by itself.
void tst_NetworkFaults::whatIsLostIsNoticedAndComesBack()
{
    using Step = std::function<void(Scene &)>;
    const auto nothing = [](Scene &) {};
    const testsupport::Rows<QString, Step, Step> rows{
        {"broker killed", "pendant lost", [](Scene &) { broker().stop(); },
         [](Scene &) { broker().start(); }},
        {"broker hung", "no heartbeat", [](Scene &) { broker().freeze(true); },
         [](Scene &) { broker().freeze(false); }},
        {"pendant's way black", "no heartbeat", [](Scene &s) { s.pendantWay.swallow(true); },
         [](Scene &s) { s.pendantWay.swallow(false); }},
        {"pendant killed", "pendant lost", [](Scene &s) { s.pendantWay.cut(); }, nothing},
        {"cell's way black", "no heartbeat", [](Scene &s) { s.cellWay.swallow(true); },
         [](Scene &s) { s.cellWay.swallow(false); }},
        {"cell's way cut", "pendant lost", [](Scene &s) { s.cellWay.cut(); }, nothing},
        {"cell hung", "no heartbeat", [](Scene &s) { s.gate.lock(); },
         [](Scene &s) { s.gate.unlock(); }},
    };
    QVERIFY(Scene().comeUp());
    const int before = countAll();
    for (const auto &[name, cause, fail, mend] : rows) {
        Scene scene;
        QVERIFY(scene.comeUp());
        QCOMPARE(scene.holdWire(), 0);
        QCOMPARE(scene.journal().size(), 1);
        fail(scene);
        QVERIFY(scene.waitUp(false));
        const bool works = name != "cell hung"; // else it stops as soon as it does
        QVERIFY(!works || scene.waitStill());
        mend(scene);
        QVERIFY(scene.waitStill());
        QCOMPARE(scene.journal().last().cause, cause);
        QVERIFY(scene.waitUp());
        QSignalSpy news(scene.link.get(), &MqttLink::notified);
        QCOMPARE(scene.watch().code, 0);
        QCOMPARE(scene.command("real").code, 0);
        QTRY_COMPARE_WITH_TIMEOUT(news.count(), 1, patient);
        QCOMPARE(scene.journal().size(), 2);
    }
    QTRY_VERIFY(countAll() <= before);
}

void tst_NetworkFaults::aServiceThatIsGone()
{
    const QTemporaryDir folder;
    QFile users(folder.filePath("users"));
    QVERIFY(users.open(QIODevice::WriteOnly));
    users.write("# who may do what\n\nanna administrator\n");
    users.close();
    QProcess service;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("WELMO_BROKER_PASSWORD", broker().as("cell").password);
    service.setProcessEnvironment(environment);
    CallBench<MqttLink> bench;
    bench.link.reset(new MqttLink({broker().as("anna"), "cell"}));
    for (const int signal : {SIGTERM, SIGKILL}) {
        service.start(CONTROLLERD,
                      {"--cell", "cell", "--data", folder.path(), "--broker",
                       QStringLiteral("mqtt://127.0.0.1:%1").arg(broker().port())});
        QVERIFY(service.waitForStarted());
        QVERIFY(bench.comeUp());
        kill(pid_t(service.processId()), signal);
        QVERIFY(bench.waitUp(false));
        QVERIFY(service.state() == QProcess::NotRunning || service.waitForFinished());
        QVERIFY(signal == SIGKILL || service.exitCode() == 0);
    }
}

void tst_NetworkFaults::lateBeatsKeepNothingMoving()
{
    Scene scene;
    QVERIFY(scene.comeUp());
    QCOMPARE(scene.holdWire(), 0);
    scene.pendantWay.delay(150); // beats still come in, each one late
    QVERIFY(scene.waitStill());
    QCOMPARE(scene.journal().last().cause, QString("no heartbeat"));
    QVERIFY(scene.holdWire() != 0);
    scene.pendantWay.delay(0);
    QTRY_VERIFY_WITH_TIMEOUT(scene.link->isUp() && scene.holdWire() == 0, patient);
}

QTEST_GUILESS_MAIN(tst_NetworkFaults)
#include "tst_networkfaults.moc"
