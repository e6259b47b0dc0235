#include <QSignalSpy>
#include <QTemporaryDir>
#include <functional>
#include <thread>

#include BENCH
#include "support/rows.h"

using Fault = welmo::controller::Faults::Fault;
using UpBench = Up<Bench>;
using Link = tessa::ControllerLink;

/// What a host may rely on when it reaches a controller through a link of any kind.
class tst_Link : public QObject
{
    Q_OBJECT
private slots:
    void answersAndKeeps()
    {
        const QTemporaryDir folder;
        {
            const Bench bench(folder.path());
            QVERIFY(!bench.link->isUp());
            QCOMPARE(bench.get().code, LinkReply::NotConnected);
            QVERIFY(bench.comeUp());
            const LinkReply missing = bench.load(3);
            QCOMPARE(missing.code, 0);
            QVERIFY(!missing.value.isValid());
            QCOMPARE(bench.save(3, 30).code, 0);
            QVERIFY(bench.save(3, -1).code > 0);
        }
        const UpBench bench(folder.path());
        QCOMPARE(bench.load(3).value, QVariant(file(3, 30)));
    }
    void timeOutTakesItDownAtOnce()
    {
        for (const bool lost : {true, false}) {
            const UpBench bench;
            QSignalSpy spy(bench.link.get(), &Link::upChanged);
            bench.faults()->loseAnswers(lost ? 1 : 0);
            bench.faults()->setDelay(lost ? 0 : 1000);
            QCOMPARE(bench.get(impatient).code, LinkReply::TimedOut);
            QVERIFY(!bench.link->isUp());
            QCOMPARE(bench.get().code, LinkReply::NotConnected);
            QCOMPARE(spy.count(), 0);

            bench.faults()->clear();
            QTRY_COMPARE(spy, (QList<QList<QVariant>>{{false}, {true}}));
            QCOMPARE(bench.get().code, 0);
        }
    }
    void lateAnswerIsNotTheNextCallsAnswer()
    {
        const UpBench bench;
        QCOMPARE(bench.save(2, 20).code, 0);
        bench.faults()->setDelay(1000);
        QCOMPARE(bench.get(impatient).code, LinkReply::TimedOut);
        bench.faults()->clear();
        QTRY_VERIFY(bench.link->isUp());
        bench.hands->now += 1000;
        QCOMPARE(bench.load(2).value, QVariant(file(2, 20)));
    }
    void whatTimedOutInTheQueueIsNotCarriedOut()
    {
        const UpBench bench;
        {
            const std::lock_guard stopped(bench.hands->gate);
            bench.faults()->clear(); // the link's thread looks at the clock for it, and stops
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
        const auto run = [&ran] { ++ran; };
        connect(bench.link.get(), &Link::upChanged, this, run);
        connect(bench.link.get(), &Link::notified, this, run);
        QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
        QCOMPARE(bench.command("real").code, 0);
        bench.faults()->loseAnswers(1);
        QCOMPARE(bench.get(impatient).code, LinkReply::TimedOut);
        QCOMPARE(ran, 0);
        QTRY_VERIFY(bench.link->isUp());
        QVERIFY(ran >= 3);
    }
    void linkDownIsNoticedWithoutACall()
    {
        const UpBench bench;
        QSignalSpy spy(bench.link.get(), &Link::upChanged);
        bench.faults()->set(Fault::LinkDown, true);
        QVERIFY(bench.link->isUp()); // not noticed yet
        QTRY_COMPARE(spy.count(), 1);
        QVERIFY(!bench.link->isUp());
        bench.faults()->set(Fault::LinkDown, false);
        QTRY_VERIFY(bench.link->isUp());
        bench.faults()->set(Fault::LinkDown, true);
        QCOMPARE(bench.get().code, LinkReply::Lost); // a call notices it before
        QVERIFY(!bench.link->isUp());
    }
    void breakFailsThePendingCall()
    {
        const UpBench bench;
        bench.faults()->setDelay(1000);
        std::thread breaker([&bench] {
            while (bench.journal().entries().isEmpty())
                std::this_thread::yield();
            bench.faults()->set(Fault::LinkDown, true); // carried out, and the answer on its way
        });
        const LinkReply reply = bench.call(Kind::Command, QStringLiteral("arc_weld.gas_flow"));
        breaker.join();
        QCOMPARE(reply.code, LinkReply::Lost);
        QVERIFY(!bench.link->isUp());
    }
    void notifiesOnlyWhatIsWatched()
    {
        const UpBench bench;
        QSignalSpy spy(bench.link.get(), &Link::notified);
        QCOMPARE(bench.watch().value, QVariant(mode("test_run")));
        QCOMPARE(bench.save(1, 10).code, 0);
        QCOMPARE(bench.command("real").code, 0);
        QTRY_COMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0), (QList<QVariant>{modeNode, mode("real")}));
    }
    void subscriptionsEndWithTheSession()
    {
        for (const bool closed : {true, false}) {
            const UpBench bench;
            QSignalSpy ups(bench.link.get(), &Link::upChanged);
            QSignalSpy spy(bench.link.get(), &Link::notified);
            QCOMPARE(bench.watch().code, 0);
            // More than are handed on at once: some still wait when the next session starts.
            for (const char *name : {"real", "test_run", "real", "test_run"})
                QCOMPARE(bench.command(name).code, 0);
            QTRY_VERIFY(spy.count() > 0);
            bench.faults()->loseAnswers(closed ? 0 : 1);
            if (closed)
                bench.link->close();
            else
                QCOMPARE(bench.get(impatient).code, LinkReply::TimedOut);
            QVERIFY(!bench.link->isUp() && ups.isEmpty()); // told later
            QVERIFY(bench.comeUp());
            QCOMPARE(ups, (QList<QList<QVariant>>{{false}, {true}}));
            spy.clear();
            QCOMPARE(bench.command("real").code, 0);
            QCOMPARE(bench.watch().value, QVariant(mode("real")));
            QCOMPARE(bench.command("simu").code, 0);
            QTRY_VERIFY(spy.count() > 0); // this one, and none of those before
            QCOMPARE(spy.at(0).at(1), QVariant(mode("simu")));
        }
    }
    void wireStopsWithThePendant()
    {
        using Step = std::function<void(const Bench &)>;
        const testsupport::Rows<QString, Step> rows{
            {"no more beats", "no heartbeat", [](const Bench &b) { b.hands->now += 100; }},
            {"beats without a key", "no key held", [](const Bench &b) { b.link->beat({}); }},
            {"link closed", "pendant lost", [](const Bench &b) { b.link->close(); }},
            {"link broken", "pendant lost",
             [](const Bench &b) { b.faults()->set(Fault::LinkDown, true); }},
        };
        for (const auto &[name, cause, end] : rows) {
            const UpBench bench;
            QVERIFY(bench.feedWire().code > 0); // no key is held yet
            for (int beats = 0; beats < 5; ++beats) {
                bench.hands->now += 50;
                bench.link->beat({1});
                QCOMPARE(bench.feedWire().code, 0);
            }
            QCOMPARE(bench.journal().entries().size(), 1); // it moves on
            end(bench);
            QTRY_COMPARE(bench.journal().entries().size(), 2);
            QCOMPARE(bench.journal().entries().last().cause, cause);
        }
    }
    void aProgramWaitsForItsPendant_data()
    {
        QTest::addColumn<bool>("automatic");
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("alarm");
        QTest::newRow("manual: somebody stands there") << false << "paused"
                                                       << "pendant_lost";
        QTest::newRow("automatic") << true << "running"
                                   << "";
    }
    void aProgramWaitsForItsPendant()
    {
        QFETCH(const bool, automatic);
        const UpBench bench;
        const auto tell = [&](const QString &command, const QVariantMap &payload) {
            QCOMPARE(bench.call(Kind::Command, command, {}, payload).code, 0);
        };
        const auto read = [&](const QString &node) {
            return bench.call(Kind::Get, node).value.toMap();
        };
        QCOMPARE(bench.command("simu").code, 0);
        tell("cell.switch", {{"automatic", automatic}});
        tell("tl_program.load", {{"name", "slow.tl"}, {"text", "MoveL p1,v5,fine,torch1,wobj0"}});
        tell("tl_program.run", {});
        bench.link->beat({});
        QTRY_COMPARE(read("tl_program.state").value("state").toString(), QString("running"));
        bench.faults()->set(Fault::LinkDown, true);
        QTRY_VERIFY(!bench.link->isUp());
        bench.hands->now += 1000;
        const int before = bench.hands->readings;
        QTRY_VERIFY(bench.hands->readings > before + 3); // it had the time to see it
        bench.faults()->clear();
        QVERIFY(bench.waitUp());
        QTEST(read("tl_program.state").value("state").toString(), "state");
        const QVariantList alarms = read("cell.alarms").value("entries").toList();
        QTEST(alarms.value(0).toMap().value("code").toString(), "alarm");
    }
};

QTEST_GUILESS_MAIN(tst_Link)
#include "tst_link.moc"
