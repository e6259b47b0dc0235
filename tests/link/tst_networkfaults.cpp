#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <csignal>

#include "broker.h"
#include "cell.h"
#include "link/mqttlink.h"
#include "linkwords.h"
#include "proxy.h"

using controller::Faults;
using controller::Journal;
using links::MqttLink;

namespace {

const QString wireFeed = QStringLiteral("arc_weld.wire_feed");
const QVariantMap feed{{QStringLiteral("feed"), true}};
constexpr int beatMs = 25;

Broker &broker()
{
    static Broker one;
    return one;
}

/// A cell and a pendant that reach the broker by ways of their own.
struct Scene
{
    Proxy cellWay{broker().port()};
    Proxy pendantWay{broker().port()};
    std::unique_ptr<Cell> cell;
    std::unique_ptr<MqttLink> link;
    std::mutex gate; // held: the cell hangs
    QTimer beats;
    int press = 0;

    explicit Scene(const QString &folder = {})
    {
        startCell(folder);
        link = std::make_unique<MqttLink>(MqttLink::Options{by(pendantWay, "anna"), "cell"});
        QObject::connect(&beats, &QTimer::timeout, [this] { link->beat(press); });
        link->open();
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

    bool waitUp(bool up = true) const
    {
        return QTest::qWaitFor([&] { return link->isUp() == up; }, patient);
    }
    LinkReply call(Kind kind, const QString &path, const QString &key = {},
                   const QVariant &payload = {}) const
    {
        return link->call({kind, path, key, payload}, patient);
    }
    /// A hand on the key for wire: beats, and the command.
    int holdWire()
    {
        ++press;
        beats.start(beatMs);
        link->beat(press);
        return call(Kind::Command, wireFeed, "wire_feel", feed).code;
    }
    QVector<Journal::Entry> journal() const { return cell->service()->journal().entries(); }
    bool waitStill() const
    {
        return QTest::qWaitFor([&] { return journal().last().event == Journal::Event::WireStops; },
                               patient);
    }
};

int countIn(const char *folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

/// What goes wrong between a pendant and a cell on the network, by name.
class tst_NetworkFaults : public QObject
{
    Q_OBJECT
private slots:
    void whatIsLostIsNoticedAndComesBack_data();
    void whatIsLostIsNoticedAndComesBack();
    void aServiceThatIsGone_data();
    void aServiceThatIsGone();
    void heldWireStops_data();
    void heldWireStops();
    void lateBeatsKeepNothingMoving();
    void aSilentCellHoldsUpNobody();
    void brokerRestartedAgainAndAgain();
    void controllerRestartedWithOtherData();
    void fullDisk();
};

void tst_NetworkFaults::whatIsLostIsNoticedAndComesBack_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("broker killed") << 0;
    QTest::newRow("broker hung") << 1;
    QTest::newRow("pendant's way black") << 2;
    QTest::newRow("pendant's way cut") << 3;
    QTest::newRow("cell's way black") << 4;
    QTest::newRow("cell's way cut") << 5;
    QTest::newRow("cell hung") << 6;
}

void tst_NetworkFaults::whatIsLostIsNoticedAndComesBack()
{
    QFETCH(int, what);
    Scene scene;
    QVERIFY(scene.waitUp());
    QCOMPARE(scene.call(Kind::Watch, modeNode).code, 0);
    const auto fail = [&](bool on) {
        if (what == 0)
            on ? broker().stop() : broker().start();
        if (what == 1)
            broker().freeze(on);
        if (what == 2)
            scene.pendantWay.swallow(on);
        if (what == 3 && on)
            scene.pendantWay.cut();
        if (what == 4)
            scene.cellWay.swallow(on);
        if (what == 5 && on)
            scene.cellWay.cut();
        if (what == 6)
            on ? scene.gate.lock() : scene.gate.unlock();
    };
    QSignalSpy ups(scene.link.get(), &MqttLink::upChanged);
    fail(true);
    QTRY_VERIFY_WITH_TIMEOUT(!ups.isEmpty(), patient);
    QCOMPARE(ups.at(0).at(0).toBool(), false);
    fail(false);
    QVERIFY(scene.waitUp());
    QCOMPARE(scene.call(Kind::Watch, modeNode).code, 0);
    QSignalSpy news(scene.link.get(), &MqttLink::notified);
    QCOMPARE(scene.call(Kind::Command, setMode, {}, mode("real")).code, 0);
    QTRY_COMPARE_WITH_TIMEOUT(news.count(), 1, patient);
}

void tst_NetworkFaults::aServiceThatIsGone_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("ended") << SIGTERM;
    QTest::newRow("killed") << SIGKILL;
    QTest::newRow("stopped") << SIGSTOP;
}

void tst_NetworkFaults::aServiceThatIsGone()
{
    QFETCH(int, signal);
    const QTemporaryDir folder;
    QFile users(folder.filePath("users"));
    QVERIFY(users.open(QIODevice::WriteOnly));
    users.write("# who may do what\n\nanna administrator\n");
    users.close();
    QProcess service;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("WELMO_BROKER_PASSWORD", broker().as("cell").password);
    service.setProcessEnvironment(environment);
    const auto start = [&] {
        service.start(CONTROLLERD,
                      {"--cell", "cell", "--data", folder.path(), "--broker",
                       QStringLiteral("mqtt://127.0.0.1:%1").arg(broker().port())});
        return service.waitForStarted();
    };
    QVERIFY(start());
    MqttLink link({broker().as("anna"), "cell"});
    link.open();
    const auto isUp = [&] { return link.isUp(); };
    QVERIFY(QTest::qWaitFor(isUp, patient));
    kill(pid_t(service.processId()), signal);
    QVERIFY(QTest::qWaitFor([&] { return !link.isUp(); }, patient));
    if (signal == SIGTERM) {
        QVERIFY(service.state() == QProcess::NotRunning || service.waitForFinished());
        QCOMPARE(service.exitCode(), 0);
    }
    service.kill();
    service.waitForFinished();
    QVERIFY(start());
    QVERIFY(QTest::qWaitFor(isUp, patient));
    service.kill();
    service.waitForFinished();
}

void tst_NetworkFaults::heldWireStops_data()
{
    QTest::addColumn<int>("what");
    QTest::addColumn<QString>("cause");
    QTest::newRow("pendant killed") << 0 << "pendant lost";
    QTest::newRow("user interface hung") << 1 << "no heartbeat";
    QTest::newRow("pendant's way black") << 2 << "no heartbeat";
    QTest::newRow("cell's way black") << 3 << "no heartbeat";
    QTest::newRow("broker killed") << 4 << "pendant lost";
    QTest::newRow("link closed") << 5 << "pendant lost";
}

void tst_NetworkFaults::heldWireStops()
{
    QFETCH(int, what);
    Scene scene;
    QVERIFY(scene.waitUp());
    QCOMPARE(scene.holdWire(), 0);
    QCOMPARE(scene.journal().size(), 1);
    if (what == 0)
        scene.pendantWay.cut(); // as the end of its process would
    if (what == 1)
        scene.beats.stop();
    if (what == 2)
        scene.pendantWay.swallow(true);
    if (what == 3)
        scene.cellWay.swallow(true);
    if (what == 4)
        broker().stop();
    if (what == 5)
        scene.link->close();
    QVERIFY(scene.waitStill());
    QTEST(scene.journal().last().cause, "cause");
    if (what == 4)
        broker().start();
}

void tst_NetworkFaults::lateBeatsKeepNothingMoving()
{
    Scene scene;
    QVERIFY(scene.waitUp());
    QCOMPARE(scene.holdWire(), 0);
    scene.pendantWay.delay(150); // beats still come in, each one late
    QVERIFY(scene.waitStill());
    QCOMPARE(scene.journal().last().cause, QString("no heartbeat"));
    QVERIFY(scene.holdWire() != 0);
    scene.pendantWay.delay(0);
    QTRY_VERIFY_WITH_TIMEOUT(scene.link->isUp() && scene.holdWire() == 0, patient);
}

void tst_NetworkFaults::aSilentCellHoldsUpNobody()
{
    auto scene = std::make_unique<Scene>();
    QVERIFY(scene->waitUp());
    scene->gate.lock();
    QCOMPARE(scene->call(Kind::Get, modeNode).code, LinkReply::Lost);
    QVERIFY(!scene->link->isUp());
    scene->link.reset(); // the window is closed while the cell still says nothing
    scene->gate.unlock();
}

void tst_NetworkFaults::brokerRestartedAgainAndAgain()
{
    Scene scene;
    QVERIFY(scene.waitUp());
    const auto restart = [&] {
        broker().stop();
        QVERIFY(scene.waitUp(false));
        broker().start();
        QVERIFY(scene.waitUp());
    };
    restart();
    const int descriptors = countIn("/proc/self/fd");
    const int threads = countIn("/proc/self/task");
    for (int times = 0; times < 100 && !QTest::currentTestFailed(); ++times)
        restart();
    QCOMPARE(countIn("/proc/self/fd"), descriptors);
    QCOMPARE(countIn("/proc/self/task"), threads);
}

void tst_NetworkFaults::controllerRestartedWithOtherData()
{
    const QTemporaryDir first;
    const QTemporaryDir other;
    const QString name = QStringLiteral("arcondata3");
    Scene scene(first.path());
    QVERIFY(scene.waitUp());
    QCOMPARE(scene.call(Kind::Set, arcOn, name, file(name, 1)).code, 0);
    scene.cell.reset();
    QVERIFY(scene.waitUp(false));
    scene.startCell(other.path());
    QVERIFY(scene.waitUp());
    const LinkReply reply = scene.call(Kind::Get, arcOn, name);
    QCOMPARE(reply.code, 0);
    QVERIFY(!reply.value.isValid());

    // Nor does anybody find the earlier one's value.
    QStringList found;
    std::atomic<bool> here{false};
    links::MqttClient reader({broker().as("anna"), "reader"},
                             {[&] { reader.subscribe("welmo/1/cell/value/#", 0); },
                              [](const QString &) {},
                              [&](const links::MqttMessage &message) {
                                  found.append(message.topic);
                                  here = here || message.topic.endsWith(modeNode);
                              }});
    reader.start();
    QTRY_VERIFY_WITH_TIMEOUT(here, patient);
    reader.stop();
    QVERIFY(!found.contains("welmo/1/cell/value/arc_weld.arcon_param/" + name));
}

void tst_NetworkFaults::fullDisk()
{
    Scene scene;
    QVERIFY(scene.waitUp());
    scene.cell->service()->faults()->set(Faults::Fault::DiskFull, true);
    const QString name = QStringLiteral("arcondata3");
    QCOMPARE(scene.call(Kind::Set, arcOn, name, file(name, 1)).code,
             int(controller::StorageFailed));
    QVERIFY(scene.link->isUp());
}

QTEST_GUILESS_MAIN(tst_NetworkFaults)
#include "tst_networkfaults.moc"
