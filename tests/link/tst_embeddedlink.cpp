#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <atomic>
#include <functional>
#include <future>
#include <mutex>
#include <thread>

#include "link/embeddedlink.h"
#include "link/farend.h"
#include "support/rows.h"

using controller::Faults;
using links::EmbeddedLink;
using tessa::LinkReply;
using tessa::LinkRequest;
using Kind = LinkRequest::Kind;
using Fault = Faults::Fault;

namespace {

constexpr int patient = 60000; // a limit that a healthy call never reaches
constexpr int impatient = 20;

const QString modeNode = QStringLiteral("arc_weld.weld_mode");
const QString setMode = QStringLiteral("arc_weld.set_weld_mode");
const QString arcOn = QStringLiteral("arc_weld.arcon_param");

QVariantMap mode(const char *name)
{
    return {{QStringLiteral("mode"), QString::fromLatin1(name)}};
}

QString fileName(int number)
{
    return QStringLiteral("arcondata%1").arg(qAbs(number));
}

QVariantMap file(int number)
{
    return {{QStringLiteral("name"), fileName(number)}, {QStringLiteral("current"), number}};
}

/// A clock that the test turns. The controller reads it again and again, so holding its gate stops
/// the link's thread.
struct Hands
{
    std::atomic<qint64> now{0};
    std::atomic<int> readings{0};
    std::mutex gate;

    qint64 read()
    {
        const std::lock_guard lock(gate);
        ++readings;
        return now;
    }
};

struct Bench
{
    std::shared_ptr<Hands> hands = std::make_shared<Hands>();
    std::unique_ptr<EmbeddedLink> link;

    explicit Bench(const QString &folder = {})
        : link(std::make_unique<EmbeddedLink>(
            EmbeddedLink::Options{folder, [hands = hands] { return hands->read(); }}))
    { }
    LinkReply call(Kind kind, const QString &path, const QString &key = {},
                   const QVariant &payload = {}, int timeoutMs = patient) const
    {
        return link->call({kind, path, key, payload}, timeoutMs);
    }
    LinkReply get(int timeoutMs = patient) const
    {
        return call(Kind::Get, modeNode, {}, {}, timeoutMs);
    }
    LinkReply watch() const { return call(Kind::Watch, modeNode); }
    LinkReply command(const char *name, int timeoutMs = patient) const
    {
        return call(Kind::Command, setMode, {}, mode(name), timeoutMs);
    }
    LinkReply save(int number, int timeoutMs = patient) const
    {
        const QString name = fileName(number);
        return call(Kind::Set, arcOn, name, file(number), timeoutMs);
    }
    bool comeUp() const
    {
        link->open();
        return QTest::qWaitFor([this] { return link->isUp(); }, patient);
    }
};

struct UpBench : Bench
{
    explicit UpBench(const QString &folder = {})
        : Bench(folder)
    {
        if (!comeUp())
            qFatal("the link did not come up");
    }
};

} // namespace

/// What a host may rely on when it reaches a controller through the embedded link.
class tst_EmbeddedLink : public QObject
{
    Q_OBJECT
private slots:
    void answersAndKeeps()
    {
        const QTemporaryDir folder;
        {
            const Bench closed(folder.path());
            QVERIFY(!closed.link->isUp());
            QCOMPARE(closed.get().code, LinkReply::NotConnected);
            const UpBench bench(folder.path());
            const LinkReply missing = bench.call(Kind::Get, arcOn, fileName(3));
            QCOMPARE(missing.code, 0);
            QVERIFY(!missing.value.isValid());
            QCOMPARE(bench.save(3).code, 0);
            QVERIFY(bench.save(-1).code > 0);
        }
        const UpBench bench(folder.path());
        QCOMPARE(bench.call(Kind::Get, arcOn, fileName(3)).value, QVariant(file(3)));
    }
    void timeOutTakesItDownAtOnce()
    {
        for (const bool lost : {true, false}) {
            const UpBench bench;
            QSignalSpy spy(bench.link.get(), &EmbeddedLink::upChanged);
            if (lost)
                bench.link->faults()->loseAnswers(1);
            else
                bench.link->faults()->setDelay(1000);
            QCOMPARE(bench.get(impatient).code, LinkReply::TimedOut);
            QVERIFY(!bench.link->isUp());
            QCOMPARE(bench.get().code, LinkReply::NotConnected);
            QCOMPARE(spy.count(), 0);

            bench.link->faults()->clear();
            QTRY_COMPARE(spy, (QList<QList<QVariant>>{{false}, {true}}));
            QCOMPARE(bench.get().code, 0);
        }
    }
    void lateAnswerIsNotTheNextCallsAnswer()
    {
        const UpBench bench;
        for (const int number : {1, 2})
            QCOMPARE(bench.save(number).code, 0);
        bench.link->faults()->setDelay(1000);
        QCOMPARE(bench.call(Kind::Get, arcOn, fileName(1), {}, impatient).code,
                 LinkReply::TimedOut);
        bench.link->faults()->clear();
        QTRY_VERIFY(bench.link->isUp());
        bench.hands->now += 1000;
        QCOMPARE(bench.call(Kind::Get, arcOn, fileName(2)).value, QVariant(file(2)));
    }
    void whatTimedOutInTheQueueIsNotCarriedOut()
    {
        const UpBench bench;
        {
            const std::lock_guard stopped(bench.hands->gate);
            bench.link->faults()->clear(); // the link's thread looks at the clock for it, and stops
            QCOMPARE(bench.command("real", impatient).code, LinkReply::TimedOut);
        }
        QTRY_VERIFY(bench.link->isUp());
        QCOMPARE(bench.get().value, QVariant(mode("test_run")));
    }
    void noSlotRunsInsideACall()
    {
        const UpBench bench;
        QCOMPARE(bench.watch().code, 0);
        int ran = 0;
        connect(bench.link.get(), &EmbeddedLink::upChanged, this, [&ran] { ++ran; });
        connect(bench.link.get(), &EmbeddedLink::notified, this, [&ran] { ++ran; });
        QMetaObject::invokeMethod(
            this, [&ran] { ++ran; }, Qt::QueuedConnection);
        QCOMPARE(bench.command("real").code, 0);
        bench.link->faults()->loseAnswers(1);
        QCOMPARE(bench.get(impatient).code, LinkReply::TimedOut);
        QCOMPARE(ran, 0);
        QTRY_VERIFY(bench.link->isUp());
        QVERIFY(ran >= 3);
    }
    void linkDownIsNoticedWithoutACall()
    {
        const UpBench bench;
        QSignalSpy spy(bench.link.get(), &EmbeddedLink::upChanged);
        bench.link->faults()->set(Fault::LinkDown, true);
        QVERIFY(bench.link->isUp()); // not noticed yet
        QTRY_COMPARE(spy.count(), 1);
        QVERIFY(!bench.link->isUp());
        bench.link->faults()->set(Fault::LinkDown, false);
        QTRY_VERIFY(bench.link->isUp());
        bench.link->faults()->set(Fault::LinkDown, true);
        QCOMPARE(bench.get().code, LinkReply::Lost); // a call notices it before
        QVERIFY(!bench.link->isUp());
    }
    void breakFailsThePendingCall()
    {
        const UpBench bench;
        bench.link->faults()->setDelay(1000);
        std::thread breaker([link = bench.link.get()] {
            while (link->journal().entries().isEmpty())
                std::this_thread::yield();
            link->faults()->set(Fault::LinkDown, true); // carried out, and the answer on its way
        });
        const LinkReply reply = bench.call(Kind::Command, QStringLiteral("arc_weld.gas_flow"));
        breaker.join();
        QCOMPARE(reply.code, LinkReply::Lost);
        QVERIFY(!bench.link->isUp());
    }
    void operatorsSwitch()
    {
        const UpBench bench;
        QCOMPARE(bench.command("real").code, 0);
        QSignalSpy spy(bench.link.get(), &EmbeddedLink::upChanged);
        bench.link->close();
        QVERIFY(!bench.link->isUp());
        QCOMPARE(spy.count(), 0);
        QTRY_COMPARE(spy.count(), 1);
        QCOMPARE(bench.get().code, LinkReply::NotConnected);
        QVERIFY(bench.comeUp());
        QCOMPARE(bench.get().value, QVariant(mode("real")));
    }
    void notifiesOnlyWhatIsWatched()
    {
        const UpBench bench;
        QSignalSpy spy(bench.link.get(), &EmbeddedLink::notified);
        QCOMPARE(bench.watch().value, QVariant(mode("test_run")));
        QCOMPARE(bench.save(1).code, 0);
        QCOMPARE(bench.command("real").code, 0);
        QTRY_COMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0), (QList<QVariant>{modeNode, mode("real")}));
    }
    void subscriptionsEndWithTheSession()
    {
        for (const bool closed : {true, false}) {
            const UpBench bench;
            QSignalSpy spy(bench.link.get(), &EmbeddedLink::notified);
            QCOMPARE(bench.watch().code, 0);
            // More than are handed on at once: some still wait when the next session starts.
            for (const char *name : {"real", "test_run", "real", "test_run"})
                QCOMPARE(bench.command(name).code, 0);
            QTRY_VERIFY(spy.count() > 0);
            bench.link->faults()->loseAnswers(closed ? 0 : 1);
            if (closed)
                bench.link->close();
            else
                QCOMPARE(bench.get(impatient).code, LinkReply::TimedOut);
            QVERIFY(bench.comeUp());
            spy.clear();
            QCOMPARE(bench.command("real").code, 0);
            QCOMPARE(bench.watch().value, QVariant(mode("real")));
            QCOMPARE(bench.command("simu").code, 0);
            QTRY_VERIFY(spy.count() > 0); // this one, and none of those before
            QCOMPARE(spy.at(0).at(1), QVariant(mode("simu")));
        }
    }
    void answerToAnOldGreetingDoesNotCount()
    {
        const Bench bench;
        bench.link->faults()->setDelay(1000);
        bench.link->open();
        // The clock is read over and over only while an answer waits for its time.
        QTRY_VERIFY(bench.hands->readings > 10);
        bench.link->close();
        bench.link->faults()->loseAnswers(1000000);
        bench.link->open();
        QSignalSpy spy(bench.link.get(), &EmbeddedLink::upChanged);
        bench.hands->now += 1000;
        const int before = bench.hands->readings;
        QTRY_VERIFY(bench.hands->readings > before + 10); // by then it is delivered
        QCoreApplication::processEvents();
        QVERIFY(spy.isEmpty());
        bench.link->faults()->clear();
        QTRY_VERIFY(bench.link->isUp());
    }
    void storeThatCannotBeOpened()
    {
        const QTemporaryDir folder;
        auto owner = std::make_unique<UpBench>(folder.path());
        Faults faults;
        controller::Journal journal;
        links::FarEnd farEnd(folder.path(), faults, journal, [] { return qint64(0); });
        QSignalSpy problems(&farEnd, &links::FarEnd::problem);
        QSignalSpy greeted(&farEnd, &links::FarEnd::greeted);
        for (int i = 0; i < 3; ++i)
            farEnd.greet(1); // it tries again, and has nothing new to say
        QCOMPARE(problems.count(), 1);
        QVERIFY(problems.at(0).first().toString().contains(folder.filePath("controller.db")));
        farEnd.leave();
        farEnd.greet(2);
        QCOMPARE(problems.count(), 2); // told to who opens the link anew
        QCOMPARE(greeted.count(), 0);
        owner.reset();
        farEnd.greet(2);
        QVERIFY(greeted.count() == 1 && problems.count() == 2);
    }
    void endsCleanly()
    {
        const QStringList moments{"never opened", "while it is set up", "up",
                                  "with an answer on its way", "with requests in the queue"};
        for (int when = 0; when < moments.size(); ++when) {
            const QTemporaryDir folder;
            {
                const Bench bench(folder.path());
                if (when == 1)
                    bench.link->open();
                if (when >= 2)
                    QVERIFY(bench.comeUp());
                if (when == 3) {
                    bench.link->faults()->setDelay(1000);
                    bench.save(1, impatient);
                }
                if (when == 4)
                    bench.save(1, 0);
            }
            const UpBench next(folder.path());
        }
    }
    void endsWhenTheBusyThreadIsDone()
    {
        UpBench bench;
        std::promise<void> stopped;
        std::promise<void> ending;
        std::thread blocker([&stopped, &ending, hands = bench.hands] {
            const std::lock_guard gate(hands->gate);
            stopped.set_value();
            ending.get_future().wait();
        });
        stopped.get_future().wait();
        bench.link->faults()->clear();
        const LinkReply reply = bench.command("real", impatient);
        ending.set_value();
        bench.link.reset();
        blocker.join();
        QCOMPARE(reply.code, LinkReply::TimedOut);
    }
    void wireStopsWithThePendant()
    {
        using Step = std::function<void(const Bench &)>;
        const testsupport::Rows<QString, Step> rows{
            {"no more beats", "no heartbeat", [](const Bench &b) { b.hands->now += 100; }},
            {"beats without a key", "no key held", [](const Bench &b) { b.link->beat(0); }},
            {"link closed", "pendant lost", [](const Bench &b) { b.link->close(); }},
            {"link broken", "pendant lost",
             [](const Bench &b) { b.link->faults()->set(Fault::LinkDown, true); }},
        };
        for (const auto &[name, cause, end] : rows) {
            const UpBench bench;
            const auto start = [&bench] {
                return bench.call(Kind::Command, QStringLiteral("arc_weld.wire_feed"),
                                  QStringLiteral("wire_feel"), QVariantMap{{"feed", true}});
            };
            QVERIFY(start().code > 0);
            for (int beats = 0; beats < 5; ++beats) {
                bench.hands->now += 50;
                bench.link->beat(1);
                QCOMPARE(start().code, 0);
            }
            QCOMPARE(bench.link->journal().entries().size(), 1); // it moves on
            end(bench);
            QTRY_COMPARE(bench.link->journal().entries().size(), 2);
            QCOMPARE(bench.link->journal().entries().last().cause, cause);
        }
    }
};

QTEST_GUILESS_MAIN(tst_EmbeddedLink)
#include "tst_embeddedlink.moc"
