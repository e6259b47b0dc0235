#include <csignal>
#include <functional>

#include "broker.h"
#include "cell.h"
#include "pendant.h"
#include "proxy.h"
#include "support/datarows.h"
#include "support/files.h"

using namespace testsupport;
using welmo::controller::Journal;

namespace {

constexpr int beatMs = 25;

/// A cell and a pendant; each reaches the broker through a proxy of its own.
struct Scene
{
    Proxy cellWay{Broker::shared().port()};
    Proxy pendantWay{Broker::shared().port()};
    std::mutex gate; // while the test holds it, the cell hangs
    Cell cell{options()};
    Pendant pendant{by(pendantWay, "anna")};
    QTimer beats;
    int press = 0;

    Scene()
    {
        QObject::connect(&beats, &QTimer::timeout, &beats, [this] { pendant.link->beat({press}); });
    }

    welmo::links::CellService::Options options()
    {
        auto made = Cell::options(by(cellWay, "cell"));
        made.clock = [this, steady = welmo::controller::steadyClock()] {
            const std::lock_guard lock(gate);
            return steady();
        };
        return made;
    }
    static welmo::links::BrokerAddress by(const Proxy &way, const QString &user)
    {
        welmo::links::BrokerAddress address = Broker::shared().as(user);
        address.port = way.port();
        return address;
    }

    /// Sends what a held key for wire sends: beats and the command.
    int holdWire()
    {
        ++press;
        beats.start(beatMs);
        pendant.link->beat({press});
        return pendant.feedWire().code;
    }
    QVector<Journal::Entry> journal() const { return cell.service()->journal().entries(); }
    bool waitStill() const
    {
        return QTest::qWaitFor(
            [&] { return journal().constLast().event == Journal::Event::WireStops; }, patient);
    }
};

using Step = std::function<void(Scene &)>;

/// The number of threads and open files of this process.
int countAll()
{
    int count = 0;
    for (const char *folder : {"/proc/self/task", "/proc/self/fd"})
        count += QDir(folder).entryList(QDir::AllEntries | QDir::System).size();
    return count;
}

} // namespace

/// Faults between a pendant and a cell on the network.
class tst_NetworkFaults : public QObject
{
    Q_OBJECT
private slots:
    void whatIsLostIsNoticedAndComesBack_data()
    {
        const Step nothing = [](Scene &) {};
        addRows<QString, Step, Step>(
            {{"broker killed", "pendant lost", [](auto &) { Broker::shared().stop(); },
              [](auto &) { Broker::shared().start(); }},
             {"broker hung", "no heartbeat", [](auto &) { Broker::shared().freeze(true); },
              [](auto &) { Broker::shared().freeze(false); }},
             {"pendant's way black", "no heartbeat", [](auto &s) { s.pendantWay.swallow(true); },
              [](auto &s) { s.pendantWay.swallow(false); }},
             {"pendant killed", "pendant lost", [](auto &s) { s.pendantWay.cut(); }, nothing},
             {"cell's way black", "no heartbeat", [](auto &s) { s.cellWay.swallow(true); },
              [](auto &s) { s.cellWay.swallow(false); }},
             {"cell's way cut", "pendant lost", [](auto &s) { s.cellWay.cut(); }, nothing},
             {"cell hung", "no heartbeat", [](auto &s) { s.gate.lock(); },
              [](auto &s) { s.gate.unlock(); }}});
        QVERIFY(Scene().pendant.comeUp());
        m_openBefore = countAll();
    }
    // Wire is moving when the fault comes; it stops and does not start again by itself.
    void whatIsLostIsNoticedAndComesBack()
    {
        const auto &[name, cause, fail, mend] = currentRow<QString, Step, Step>();
        {
            Scene scene;
            QVERIFY(scene.pendant.comeUp());
            QCOMPARE(scene.holdWire(), 0);
            QCOMPARE(scene.journal().size(), 1);
            fail(scene);
            QVERIFY(scene.pendant.waitUp(false));
            const bool works =
                name != "cell hung"; // a cell that hangs stops wire when it works again
            QVERIFY(!works || scene.waitStill());
            mend(scene);
            QVERIFY(scene.waitStill());
            QCOMPARE(scene.journal().constLast().cause, cause);
            QVERIFY(scene.pendant.waitUp());
            QSignalSpy news(scene.pendant.link.get(), &welmo::links::MqttLink::notified);
            QCOMPARE(scene.pendant.watch().code, 0);
            QCOMPARE(scene.pendant.command("real").code, 0);
            QTRY_COMPARE_WITH_TIMEOUT(news.count(), 1, patient);
            QCOMPARE(scene.journal().size(), 2);
        }
        QTRY_VERIFY(countAll() <= m_openBefore);
    }
    void anotherBrokerTakesOver_data()
    {
        using Act = std::function<void(Broker &)>;
        addRows<Act, Act>(
            {{"killed", [](Broker &b) { b.stop(); }, [](Broker &b) { b.start(); }},
             {"hung", [](Broker &b) { b.freeze(true); }, [](Broker &b) { b.freeze(false); }}});
    }
    // Then the second broker is lost, and the first takes over again.
    void anotherBrokerTakesOver()
    {
        using Act = std::function<void(Broker &)>;
        const auto &[name, fail, mend] = currentRow<Act, Act>();
        Broker first;
        Broker second;
        const auto both = [&](const QString &user) {
            welmo::links::BrokerAddress address = first.as(user);
            address.standbys = {{address.host, second.port()}};
            return address;
        };
        const Cell cell(Cell::options(both("cell")));
        const Pendant anna(both("anna"));
        QVERIFY(anna.comeUp());
        for (Broker *lost : {&first, &second}) {
            QSignalSpy news(anna.link.get(), &welmo::links::MqttLink::notified);
            QCOMPARE(anna.watch().code, 0);
            fail(*lost);
            QVERIFY(anna.waitUp(false) && anna.waitUp());
            mend(*lost);
            QCOMPARE(anna.watch().code, 0);
            QCOMPARE(anna.command(lost == &first ? "real" : "simu").code, 0);
            QTRY_COMPARE_WITH_TIMEOUT(news.count(), 1, patient);
        }
        QCOMPARE(anna.problems->value(0).value(0).toString(),
                 QString()); // there was always a broker left to try
    }
    void aServiceThatIsGone()
    {
        const QTemporaryDir folder;
        writeFile(folder.filePath("users"), "# who may do what\n\nanna administrator\n");
        QProcess service;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("WELMO_BROKER_PASSWORD", Broker::shared().as("cell").password);
        service.setProcessEnvironment(environment);
        const Pendant anna(Broker::shared().as("anna"));
        for (const int signal : {SIGTERM, SIGKILL}) {
            service.start(CONTROLLERD,
                          {"--cell", "cell", "--data", folder.path(), "--broker",
                           QStringLiteral("mqtt://127.0.0.1:%1").arg(Broker::shared().port())});
            QVERIFY(service.waitForStarted());
            QVERIFY(anna.comeUp());
            kill(pid_t(service.processId()), signal);
            QVERIFY(anna.waitUp(false));
            QVERIFY(service.state() == QProcess::NotRunning || service.waitForFinished());
            QVERIFY(signal == SIGKILL || service.exitCode() == 0);
        }
    }

    void lateBeatsKeepNothingMoving()
    {
        Scene scene;
        QVERIFY(scene.pendant.comeUp());
        QCOMPARE(scene.holdWire(), 0);
        scene.pendantWay.delay(150); // every beat still arrives, but late
        QVERIFY(scene.waitStill());
        QCOMPARE(scene.journal().constLast().cause, QString("no heartbeat"));
        QVERIFY(scene.holdWire() != 0);
        scene.pendantWay.delay(0);
        QTRY_VERIFY_WITH_TIMEOUT(scene.pendant.link->isUp() && scene.holdWire() == 0, patient);
    }

private:
    int m_openBefore = 0;
};

QTEST_GUILESS_MAIN(tst_NetworkFaults)
#include "tst_networkfaults.moc"
