#include <functional>
#include <thread>

#include FIXTURE
#include "support/datarows.h"

using namespace testsupport;
using Fault = welmo::controller::Faults::Fault;
using UpFixture = Up<Fixture>;
using Link = tessa::ControllerLink;
using Step = std::function<void(const Fixture &)>;

/// What every kind of link guarantees its host.
class tst_Link : public QObject
{
    Q_OBJECT
private slots:
    void answersAndKeeps()
    {
        const QTemporaryDir folder;
        {
            const Fixture fixture(folder.path());
            QVERIFY(!fixture.link->isUp());
            QCOMPARE(fixture.get().code, LinkReply::NotConnected);
            QVERIFY(fixture.comeUp());
            const LinkReply missing = fixture.load(3);
            QCOMPARE(missing.code, 0);
            QVERIFY(!missing.value.isValid());
            QCOMPARE(fixture.save(3, 30).code, 0);
            QVERIFY(fixture.save(3, -1).code > 0);
        }
        const UpFixture fixture(folder.path());
        QCOMPARE(fixture.load(3).value, QVariant(file(3, 30)));
    }
    void anOperatorIsBoundToWhatIsReleased()
    {
        const UpFixture fixture;
        const QString released = QStringLiteral("arc_weld.released");
        QCOMPARE(fixture.save(3, 100).code, 0);
        const QVariantMap limits{{"current", 10}};
        QCOMPARE(fixture.call(Kind::Set, released, fileName(3), limits).code, 0);
        fixture.becomeOperator();
        QCOMPARE(fixture.save(3, 110).code, 0);
        const LinkReply refused = fixture.call(Kind::Set, arcOn, fileName(3), file(3, 111));
        QCOMPARE(refused.code, int(welmo::controller::NotAllowed));
        QCOMPARE(refused.value.toMap().value("reason").toString(), QString("trim_current"));
        QCOMPARE(fixture.load(3).value, QVariant(file(3, 110)));
        QCOMPARE(fixture.call(Kind::Set, released, fileName(3), limits).code,
                 int(welmo::controller::NotAllowed));
    }
    void timeOutTakesItDownAtOnce()
    {
        for (const bool lost : {true, false}) {
            const UpFixture fixture;
            QSignalSpy spy(fixture.link.get(), &Link::upChanged);
            fixture.faults()->loseAnswers(lost ? 1 : 0);
            fixture.faults()->setDelay(lost ? 0 : 1000);
            QCOMPARE(fixture.get(impatient).code, LinkReply::TimedOut);
            QVERIFY(!fixture.link->isUp());
            QCOMPARE(fixture.get().code, LinkReply::NotConnected);
            QCOMPARE(spy.count(), 0);

            fixture.faults()->clear();
            QTRY_COMPARE(spy, (QList<QList<QVariant>>{{false}, {true}}));
            QCOMPARE(fixture.get().code, 0);
        }
    }
    void lateAnswerIsNotTheNextCallsAnswer()
    {
        const UpFixture fixture;
        QCOMPARE(fixture.save(2, 20).code, 0);
        fixture.faults()->setDelay(1000);
        QCOMPARE(fixture.get(impatient).code, LinkReply::TimedOut);
        fixture.faults()->clear();
        QTRY_VERIFY(fixture.link->isUp());
        fixture.hands->now += 1000;
        QCOMPARE(fixture.load(2).value, QVariant(file(2, 20)));
    }
    void whatTimedOutInTheQueueIsNotCarriedOut()
    {
        const UpFixture fixture;
        {
            const std::lock_guard stopped(fixture.hands->gate);
            fixture.faults()->clear(); // makes the link's thread read the clock, where it stops
            QCOMPARE(fixture.command("real", impatient).code, LinkReply::TimedOut);
        }
        QTRY_VERIFY(fixture.link->isUp());
        QCOMPARE(fixture.get().value, QVariant(mode("test_run")));
    }
    void noSlotRunsInsideACall()
    {
        const UpFixture fixture;
        QCOMPARE(fixture.watch().code, 0);
        int ran = 0;
        const auto run = [&ran] { ++ran; };
        connect(fixture.link.get(), &Link::upChanged, this, run);
        connect(fixture.link.get(), &Link::notified, this, run);
        QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
        QCOMPARE(fixture.command("real").code, 0);
        fixture.faults()->loseAnswers(1);
        QCOMPARE(fixture.get(impatient).code, LinkReply::TimedOut);
        QCOMPARE(ran, 0);
        QTRY_VERIFY(fixture.link->isUp());
        QVERIFY(ran >= 3);
    }
    void linkDownIsNoticedWithoutACall()
    {
        const UpFixture fixture;
        QSignalSpy spy(fixture.link.get(), &Link::upChanged);
        fixture.faults()->set(Fault::LinkDown, true);
        QVERIFY(fixture.link->isUp()); // not noticed yet
        QTRY_COMPARE(spy.count(), 1);
        QVERIFY(!fixture.link->isUp());
        fixture.faults()->set(Fault::LinkDown, false);
        QTRY_VERIFY(fixture.link->isUp());
        fixture.faults()->set(Fault::LinkDown, true);
        QCOMPARE(fixture.get().code, LinkReply::Lost); // a call notices it at once
        QVERIFY(!fixture.link->isUp());
    }
    void breakFailsThePendingCall()
    {
        const UpFixture fixture;
        fixture.faults()->setDelay(1000);
        std::thread breaker([&fixture] {
            while (fixture.journal().entries().isEmpty())
                std::this_thread::yield();
            fixture.faults()->set(Fault::LinkDown,
                                  true); // it is carried out, the answer is on its way
        });
        const LinkReply reply = fixture.call(Kind::Command, QStringLiteral("arc_weld.gas_flow"));
        breaker.join();
        QCOMPARE(reply.code, LinkReply::Lost);
        QVERIFY(!fixture.link->isUp());
    }
    void notifiesOnlyWhatIsWatched()
    {
        const UpFixture fixture;
        QSignalSpy spy(fixture.link.get(), &Link::notified);
        QCOMPARE(fixture.watch().value, QVariant(mode("test_run")));
        QCOMPARE(fixture.save(1, 10).code, 0);
        QCOMPARE(fixture.command("real").code, 0);
        QTRY_COMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0), (QList<QVariant>{modeNode, mode("real")}));
    }
    void subscriptionsEndWithTheSession()
    {
        for (const bool closed : {true, false}) {
            const UpFixture fixture;
            QSignalSpy ups(fixture.link.get(), &Link::upChanged);
            QSignalSpy spy(fixture.link.get(), &Link::notified);
            QCOMPARE(fixture.watch().code, 0);
            // So many that some are still waiting when the next session starts.
            for (const char *name : {"real", "test_run", "real", "test_run"})
                QCOMPARE(fixture.command(name).code, 0);
            QTRY_VERIFY(spy.count() > 0);
            fixture.faults()->loseAnswers(closed ? 0 : 1);
            if (closed)
                fixture.link->close();
            else
                QCOMPARE(fixture.get(impatient).code, LinkReply::TimedOut);
            QVERIFY(!fixture.link->isUp() && ups.isEmpty()); // the signal comes later
            QVERIFY(fixture.comeUp());
            QCOMPARE(ups, (QList<QList<QVariant>>{{false}, {true}}));
            spy.clear();
            QCOMPARE(fixture.command("real").code, 0);
            QCOMPARE(fixture.watch().value, QVariant(mode("real")));
            QCOMPARE(fixture.command("simu").code, 0);
            QTRY_VERIFY(spy.count() > 0); // the new one comes, the old ones do not
            QCOMPARE(spy.at(0).at(1), QVariant(mode("simu")));
        }
    }
    void wireStopsWithThePendant_data()
    {
        addRows<QString, Step>(
            {{"no more beats", "no heartbeat", [](const Fixture &b) { b.hands->now += 100; }},
             {"beats without a key", "no key held", [](const Fixture &b) { b.link->beat({}); }},
             {"link closed", "pendant lost", [](const Fixture &b) { b.link->close(); }},
             {"link broken", "pendant lost",
              [](const Fixture &b) { b.faults()->set(Fault::LinkDown, true); }}});
    }
    void wireStopsWithThePendant()
    {
        const auto &[name, cause, end] = currentRow<QString, Step>();
        const UpFixture fixture;
        QVERIFY(fixture.feedWire().code > 0); // no key is held yet
        for (int beats = 0; beats < 5; ++beats) {
            fixture.hands->now += 50;
            fixture.link->beat({1});
            QCOMPARE(fixture.feedWire().code, 0);
        }
        QCOMPARE(fixture.journal().entries().size(), 1); // wire went on without a stop
        end(fixture);
        QTRY_COMPARE(fixture.journal().entries().size(), 2);
        QCOMPARE(fixture.journal().entries().last().cause, cause);
    }
    void aProgramWaitsForItsPendant_data()
    {
        addRows<bool, QString, QString>(
            {{"manual: somebody stands there", false, "paused", "pendant_lost"},
             {"automatic", true, "running", ""}});
    }
    void aProgramWaitsForItsPendant()
    {
        const auto &[name, automatic, state, alarm] = currentRow<bool, QString, QString>();
        const UpFixture fixture;
        const auto tell = [&](const QString &command, const QVariantMap &payload) {
            QCOMPARE(fixture.call(Kind::Command, command, {}, payload).code, 0);
        };
        const auto read = [&](const QString &node) {
            return fixture.call(Kind::Get, node).value.toMap();
        };
        QCOMPARE(fixture.command("simu").code, 0);
        tell("cell.switch", {{"automatic", automatic}});
        tell("tl_program.load", {{"name", "slow.tl"}, {"text", "MoveL p1,v5,fine,torch1,wobj0"}});
        tell("tl_program.run", {});
        fixture.link->beat({});
        QTRY_COMPARE(read("tl_program.state").value("state").toString(), QString("running"));
        fixture.faults()->set(Fault::LinkDown, true);
        QTRY_VERIFY(!fixture.link->isUp());
        fixture.hands->now += 1000;
        const int before = fixture.hands->readings;
        QTRY_VERIFY(fixture.hands->readings > before + 3); // the controller has noticed
        fixture.faults()->clear();
        QVERIFY(fixture.waitUp());
        QCOMPARE(read("tl_program.state").value("state").toString(), state);
        const QVariantList alarms = read("cell.alarms").value("entries").toList();
        QCOMPARE(alarms.value(0).toMap().value("code").toString(), alarm);
    }
};

QTEST_GUILESS_MAIN(tst_Link)
#include "tst_link.moc"
