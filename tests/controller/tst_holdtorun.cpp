#include <QtTest>
#include <functional>

#include "controllerbench.h"
#include "support/rows.h"

using namespace welmo::controller;
using Fault = Faults::Fault;
using Event = Journal::Event;
using testsupport::Rows;

namespace {

constexpr int lastBeatToStill = 100; // the longest that wire moves after a beat

/// A pendant with the two wire keys.
struct Keys : ControllerBench
{
    int presses = 0;
    bool held = false;
    QVector<int> others; // presses of keys that move no wire

    void live(int ms) { ControllerBench::live(ms, held ? QVector<int>{presses} + others : others); }
    /// The commands as such.
    int feed(bool down)
    {
        return run("arc_weld.wire_feed", QVariantMap{{"feed", down}}, "wire_feel").code;
    }
    int back(bool down)
    {
        return run("arc_weld.wire_feed", QVariantMap{{"reverse", down}}, "wire_feel_back").code;
    }
    /// The key goes down; the command is still to come.
    void press()
    {
        ++presses;
        held = true;
        live(0);
    }
    int pressFeed()
    {
        press();
        return feed(true);
    }
    bool moves() const { return !events().isEmpty() && events().last() != Event::WireStops; }
};

using Step = std::function<void(Keys &)>;

} // namespace

/// Wire that a key moves stops by itself when nobody proves to hold the key, and stays still until
/// the key was pressed afresh.
class tst_HoldToRun : public QObject
{
    Q_OBJECT
private slots:
    void stopsByItself()
    {
        const Rows<Step, QString, int> rows{
            {"no beats", [](Keys &) {}, "no heartbeat", lastBeatToStill},
            {"pendant lost", [](Keys &b) { b.controller.losePendant(); }, "pendant lost", 0},
            {"hand off the keys, release lost",
             [](Keys &b) {
                 b.held = false;
                 b.live(0);
             },
             "no key held", 0},
            // Another key proves nothing for this one; its release may have been refused.
            {"only another key held",
             [](Keys &b) {
                 b.held = false;
                 b.others = {b.presses + 1};
                 b.live(200);
             },
             "another key held", 0},
            {"welder error", [](Keys &b) { b.faults.set(Fault::WelderError, true); },
             "welder error", 10},
            {"wire stuck", [](Keys &b) { b.faults.set(Fault::WireStuck, true); }, "wire stuck", 10},
            // The controller was busy elsewhere: the beat that it finds excuses none it missed.
            {"beats too late",
             [](Keys &b) {
                 b.now += lastBeatToStill;
                 b.live(0);
             },
             "no heartbeat", lastBeatToStill},
        };
        for (const auto &[name, trouble, cause, within] : rows) {
            Keys bench;
            bench.press();
            QCOMPARE(bench.back(true), int(Ok));
            bench.live(500);
            const qint64 lastBeat = bench.now;
            trouble(bench);
            bench.pass(1000);
            QCOMPARE(bench.events(), (QVector<Event>{Event::WireRetracts, Event::WireStops}));
            QCOMPARE(bench.journal.entries().last().cause, cause);
            QVERIFY(bench.journal.entries().last().time - lastBeat <= within);
            bench.faults.clear();
            bench.others.clear();
            bench.live(100);
            QVERIFY(!bench.moves());
            QCOMPARE(bench.back(true), int(WrongState)); // the same press, repeated
            QCOMPARE(bench.pressFeed(), int(Ok));
        }
    }
    void onePressOneStart()
    {
        Keys bench;
        QCOMPARE(bench.pressFeed(), int(Ok));
        QCOMPARE(bench.feed(true), int(Ok)); // repeated while it moves
        QCOMPARE(bench.events().size(), 1);
        bench.pass(40);
        QCOMPARE(bench.feed(false), int(Ok)); // needs no beat
        QCOMPARE(bench.journal.entries().last().cause, QString("wire_feel"));
        QCOMPARE(bench.back(true), int(WrongState)); // an old command while the key is still down
        bench.press();
        QCOMPARE(bench.back(true), int(Ok));
        bench.controller.losePendant();
        QCOMPARE(bench.feed(false), int(Ok)); // late, of the press before
        QCOMPARE(bench.events().size(), 4);
        --bench.presses; // a new pendant, which may come to the same number
        bench.held = false;
        bench.live(0);
        QCOMPARE(bench.pressFeed(), int(Ok));
        QCOMPARE(Keys().feed(true), int(WrongState)); // where nobody ever beat
    }
};

QTEST_GUILESS_MAIN(tst_HoldToRun)
#include "tst_holdtorun.moc"
