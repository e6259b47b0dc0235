#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <atomic>
#include <future>
#include <mutex>
#include <thread>

#include "link/embeddedlink.h"

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

QVariantMap file(const QString &name, double current)
{
    return {{QStringLiteral("name"), name}, {QStringLiteral("current"), current}};
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
    {
        link = std::make_unique<EmbeddedLink>(
            EmbeddedLink::Options{folder, [hands = hands] { return hands->read(); }});
    }

    LinkReply call(Kind kind, const QString &path, const QString &key = {},
                   const QVariant &payload = {}, int timeoutMs = patient) const
    {
        return link->call({kind, path, key, payload}, timeoutMs);
    }

    bool comeUp() const
    {
        link->open();
        return QTest::qWaitFor([this] { return link->isUp(); }, patient);
    }
};

} // namespace

/// What a host may rely on when it reaches a controller through the embedded link.
class tst_EmbeddedLink : public QObject
{
    Q_OBJECT
private slots:
    void answersAndKeeps();
    void needsToBeOpened();
    void timeOutTakesItDownAtOnce_data();
    void timeOutTakesItDownAtOnce();
    void lateAnswerIsNotTheNextCallsAnswer();
    void whatTimedOutInTheQueueIsNotCarriedOut();
    void noSlotRunsInsideACall();
    void linkDownIsNoticedWithoutACall();
    void breakFailsThePendingCall();
    void callIntoABrokenLink();
    void operatorsSwitch();
    void notifiesOnlyWhatIsWatched();
    void subscriptionsEndWithTheSession_data();
    void subscriptionsEndWithTheSession();
    void notificationOfAnOldSessionIsDropped();
    void answerToAnOldGreetingDoesNotCount();
    void storeThatCannotBeOpened();
    void storeThatHealsBringsTheLinkUp();
    void endsCleanly_data();
    void endsCleanly();
    void endsWhenTheBusyThreadIsDone();
    void wireStopsWithThePendant_data();
    void wireStopsWithThePendant();
};

void tst_EmbeddedLink::answersAndKeeps()
{
    const QTemporaryDir folder;
    const QString name = QStringLiteral("arcondata3");
    {
        const Bench bench(folder.path());
        QVERIFY(bench.comeUp());
        const LinkReply missing = bench.call(Kind::Get, arcOn, name);
        QCOMPARE(missing.code, 0);
        QVERIFY(!missing.value.isValid());
        QCOMPARE(bench.call(Kind::Set, arcOn, name, file(name, 180.5)).code, 0);
        QVERIFY(bench.call(Kind::Set, arcOn, name, file(name, -1)).code > 0);
    }
    const Bench bench(folder.path());
    QVERIFY(bench.comeUp());
    QCOMPARE(bench.call(Kind::Get, arcOn, name).value, QVariant(file(name, 180.5)));
}

void tst_EmbeddedLink::needsToBeOpened()
{
    const Bench bench;
    QVERIFY(!bench.link->isUp());
    QCOMPARE(bench.call(Kind::Get, modeNode).code, LinkReply::NotConnected);
}

void tst_EmbeddedLink::timeOutTakesItDownAtOnce_data()
{
    QTest::addColumn<bool>("lost");
    QTest::newRow("answer lost") << true;
    QTest::newRow("answer late") << false;
}

void tst_EmbeddedLink::timeOutTakesItDownAtOnce()
{
    QFETCH(bool, lost);
    const Bench bench;
    QVERIFY(bench.comeUp());
    QSignalSpy spy(bench.link.get(), &EmbeddedLink::upChanged);
    if (lost)
        bench.link->faults()->loseAnswers(1);
    else
        bench.link->faults()->setDelay(1000);
    QCOMPARE(bench.call(Kind::Get, modeNode, {}, {}, impatient).code, LinkReply::TimedOut);
    QVERIFY(!bench.link->isUp());
    QCOMPARE(bench.call(Kind::Get, modeNode).code, LinkReply::NotConnected);
    QCOMPARE(spy.count(), 0);

    bench.link->faults()->clear();
    QTRY_COMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).first().toBool(), false);
    QCOMPARE(spy.at(1).first().toBool(), true);
    QCOMPARE(bench.call(Kind::Get, modeNode).code, 0);
}

void tst_EmbeddedLink::lateAnswerIsNotTheNextCallsAnswer()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
    const QString first = QStringLiteral("arcondata1");
    const QString second = QStringLiteral("arcondata2");
    QCOMPARE(bench.call(Kind::Set, arcOn, first, file(first, 1)).code, 0);
    QCOMPARE(bench.call(Kind::Set, arcOn, second, file(second, 2)).code, 0);

    bench.link->faults()->setDelay(1000);
    QCOMPARE(bench.call(Kind::Get, arcOn, first, {}, impatient).code, LinkReply::TimedOut);
    bench.link->faults()->clear();
    QTRY_VERIFY(bench.link->isUp());
    bench.hands->now += 1000;
    QCOMPARE(bench.call(Kind::Get, arcOn, second).value, QVariant(file(second, 2)));
}

void tst_EmbeddedLink::whatTimedOutInTheQueueIsNotCarriedOut()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
    {
        const std::lock_guard stopped(bench.hands->gate);
        bench.link->faults()->clear(); // the link's thread looks at the clock for it, and stops
        const LinkReply reply = bench.call(Kind::Command, setMode, {}, mode("real"), impatient);
        QCOMPARE(reply.code, LinkReply::TimedOut);
    }
    QTRY_VERIFY(bench.link->isUp());
    QCOMPARE(bench.call(Kind::Get, modeNode).value, QVariant(mode("test_run")));
}

void tst_EmbeddedLink::noSlotRunsInsideACall()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
    QCOMPARE(bench.call(Kind::Watch, modeNode).code, 0);
    int ran = 0;
    connect(bench.link.get(), &EmbeddedLink::upChanged, this, [&ran] { ++ran; });
    connect(bench.link.get(), &EmbeddedLink::notified, this, [&ran] { ++ran; });
    QMetaObject::invokeMethod(
        this, [&ran] { ++ran; }, Qt::QueuedConnection);

    QCOMPARE(bench.call(Kind::Command, setMode, {}, mode("real")).code, 0);
    bench.link->faults()->loseAnswers(1);
    QCOMPARE(bench.call(Kind::Get, modeNode, {}, {}, impatient).code, LinkReply::TimedOut);
    QCOMPARE(ran, 0);
    QTRY_VERIFY(bench.link->isUp());
    QVERIFY(ran >= 3);
}

void tst_EmbeddedLink::linkDownIsNoticedWithoutACall()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
    QSignalSpy spy(bench.link.get(), &EmbeddedLink::upChanged);
    bench.link->faults()->set(Fault::LinkDown, true);
    QTRY_COMPARE(spy.count(), 1);
    QVERIFY(!bench.link->isUp());
    bench.link->faults()->set(Fault::LinkDown, false);
    QTRY_VERIFY(bench.link->isUp());
}

void tst_EmbeddedLink::breakFailsThePendingCall()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
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

void tst_EmbeddedLink::callIntoABrokenLink()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
    bench.link->faults()->set(Fault::LinkDown, true); // not noticed yet on this side
    QVERIFY(bench.link->isUp());
    QCOMPARE(bench.call(Kind::Get, modeNode).code, LinkReply::Lost);
    QVERIFY(!bench.link->isUp());
}

void tst_EmbeddedLink::operatorsSwitch()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
    QCOMPARE(bench.call(Kind::Command, setMode, {}, mode("real")).code, 0);
    QSignalSpy spy(bench.link.get(), &EmbeddedLink::upChanged);
    bench.link->close();
    QVERIFY(!bench.link->isUp());
    QCOMPARE(spy.count(), 0);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(bench.call(Kind::Get, modeNode).code, LinkReply::NotConnected);

    QVERIFY(bench.comeUp());
    QCOMPARE(bench.call(Kind::Get, modeNode).value, QVariant(mode("real")));
}

void tst_EmbeddedLink::notifiesOnlyWhatIsWatched()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
    QSignalSpy spy(bench.link.get(), &EmbeddedLink::notified);
    QCOMPARE(bench.call(Kind::Watch, modeNode).value, QVariant(mode("test_run")));
    const QString name = QStringLiteral("arcondata1");
    QCOMPARE(bench.call(Kind::Set, arcOn, name, file(name, 1)).code, 0);
    QCOMPARE(bench.call(Kind::Command, setMode, {}, mode("real")).code, 0);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), modeNode);
    QCOMPARE(spy.at(0).at(1), QVariant(mode("real")));
}

void tst_EmbeddedLink::subscriptionsEndWithTheSession_data()
{
    QTest::addColumn<bool>("closed");
    QTest::newRow("closed by the operator") << true;
    QTest::newRow("lost with an answer") << false;
}

void tst_EmbeddedLink::subscriptionsEndWithTheSession()
{
    QFETCH(bool, closed);
    const Bench bench;
    QVERIFY(bench.comeUp());
    QCOMPARE(bench.call(Kind::Watch, modeNode).code, 0);
    if (closed) {
        bench.link->close();
    } else {
        bench.link->faults()->loseAnswers(1);
        QCOMPARE(bench.call(Kind::Get, modeNode, {}, {}, impatient).code, LinkReply::TimedOut);
    }
    QVERIFY(bench.comeUp());
    QSignalSpy spy(bench.link.get(), &EmbeddedLink::notified);
    QCOMPARE(bench.call(Kind::Command, setMode, {}, mode("real")).code, 0);
    QCOMPARE(bench.call(Kind::Watch, modeNode).value, QVariant(mode("real")));
    QCOMPARE(bench.call(Kind::Command, setMode, {}, mode("simu")).code, 0);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(1), QVariant(mode("simu")));
}

void tst_EmbeddedLink::notificationOfAnOldSessionIsDropped()
{
    const Bench bench;
    QVERIFY(bench.comeUp());
    QCOMPARE(bench.call(Kind::Watch, modeNode).code, 0);
    QSignalSpy spy(bench.link.get(), &EmbeddedLink::notified);
    // More than are handed on at once, so that some still wait when the next session starts.
    for (const char *name : {"real", "simu", "real", "simu"})
        QCOMPARE(bench.call(Kind::Command, setMode, {}, mode(name)).code, 0);
    QTRY_VERIFY(spy.count() > 0);
    bench.link->close();
    QVERIFY(bench.comeUp());
    spy.clear();
    QVERIFY(!spy.wait(200));
}

void tst_EmbeddedLink::answerToAnOldGreetingDoesNotCount()
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
    QVERIFY(!spy.wait(200));
    bench.link->faults()->clear();
    QTRY_VERIFY(bench.link->isUp());
}

void tst_EmbeddedLink::storeThatCannotBeOpened()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("controller.db"));
    QFile foreign(name);
    QVERIFY(foreign.open(QIODevice::WriteOnly));
    foreign.write("this is somebody's letter, and no store");
    foreign.close();

    const Bench bench(folder.path());
    QSignalSpy problems(bench.link.get(), &EmbeddedLink::problem);
    QSignalSpy ups(bench.link.get(), &EmbeddedLink::upChanged);
    bench.link->open();
    QTRY_COMPARE(problems.count(), 1);
    QVERIFY(problems.at(0).first().toString().contains(name));
    bench.link->close();
    bench.link->open();
    QTRY_COMPARE(problems.count(), 2);
    QCOMPARE(ups.count(), 0);
}

void tst_EmbeddedLink::storeThatHealsBringsTheLinkUp()
{
    const QTemporaryDir folder;
    auto owner = std::make_unique<Bench>(folder.path());
    QVERIFY(owner->comeUp());
    const Bench second(folder.path());
    QSignalSpy problems(second.link.get(), &EmbeddedLink::problem);
    second.link->open();
    QTRY_COMPARE(problems.count(), 1);
    QVERIFY(!problems.wait(1200)); // it tries again, and has nothing new to say
    QVERIFY(!second.link->isUp());
    owner.reset();
    QTRY_VERIFY(second.link->isUp());
    QCOMPARE(problems.count(), 1);
}

void tst_EmbeddedLink::endsCleanly_data()
{
    QTest::addColumn<int>("when");
    QTest::newRow("never opened") << 0;
    QTest::newRow("while it is set up") << 1;
    QTest::newRow("up") << 2;
    QTest::newRow("with an answer on its way") << 3;
    QTest::newRow("with requests in the queue") << 4;
}

void tst_EmbeddedLink::endsCleanly()
{
    QFETCH(int, when);
    const QTemporaryDir folder;
    const QString name = QStringLiteral("arcondata1");
    {
        const Bench bench(folder.path());
        if (when == 1)
            bench.link->open();
        if (when >= 2)
            QVERIFY(bench.comeUp());
        if (when == 3) {
            bench.link->faults()->setDelay(1000);
            bench.call(Kind::Set, arcOn, name, file(name, 1), impatient);
        }
        if (when == 4)
            bench.call(Kind::Set, arcOn, name, file(name, 1), 0);
    }
    const Bench next(folder.path());
    QVERIFY(next.comeUp());
}

void tst_EmbeddedLink::endsWhenTheBusyThreadIsDone()
{
    Bench bench;
    QVERIFY(bench.comeUp());
    std::promise<void> stopped;
    std::promise<void> ending;
    std::thread blocker([&stopped, &ending, hands = bench.hands] {
        const std::lock_guard gate(hands->gate);
        stopped.set_value();
        ending.get_future().wait();
    });
    stopped.get_future().wait();
    bench.link->faults()->clear();
    const LinkReply reply = bench.call(Kind::Command, setMode, {}, mode("real"), impatient);
    ending.set_value();
    bench.link.reset();
    blocker.join();
    QCOMPARE(reply.code, LinkReply::TimedOut);
}

void tst_EmbeddedLink::wireStopsWithThePendant_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("no more beats") << "no heartbeat";
    QTest::newRow("beats without a key") << "no key held";
    QTest::newRow("link closed") << "pendant lost";
    QTest::newRow("link broken") << "pendant lost";
}

void tst_EmbeddedLink::wireStopsWithThePendant()
{
    QFETCH(QString, end);
    const Bench bench;
    QVERIFY(bench.comeUp());
    const QVariantMap feed{{QStringLiteral("feed"), true}};
    const auto start = [&] {
        return bench.call(Kind::Command, QStringLiteral("arc_weld.wire_feed"),
                          QStringLiteral("wire_feel"), feed);
    };
    QVERIFY(start().code > 0);
    for (int beats = 0; beats < 5; ++beats) {
        bench.hands->now += 50;
        bench.link->beat(1);
        QCOMPARE(start().code, 0);
    }
    QCOMPARE(bench.link->journal().entries().size(), 1); // it moves on
    if (end == "no heartbeat")
        bench.hands->now += 100;
    else if (end == "no key held")
        bench.link->beat(0);
    else if (QTest::currentDataTag() == QLatin1String("link closed"))
        bench.link->close();
    else
        bench.link->faults()->set(Fault::LinkDown, true);
    QTRY_COMPARE(bench.link->journal().entries().size(), 2);
    QCOMPARE(bench.link->journal().entries().last().cause, end);
}

QTEST_GUILESS_MAIN(tst_EmbeddedLink)
#include "tst_embeddedlink.moc"
