#include <QtTest>

#include "controllerbench.h"

using namespace controller;
using Event = Journal::Event;

namespace {

/// A pendant with the two wire keys.
struct Keys : ControllerBench
{
    int presses = 0;
    bool held = false;

    void live(int ms) { ControllerBench::live(ms, held ? presses : 0); }
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
};

} // namespace

/// Wire that a key moves stops by itself when nobody proves to hold the key, and stays still until
/// the key was pressed afresh.
class tst_HoldToRun : public QObject
{
    Q_OBJECT
private slots:
    // The controller was busy elsewhere: the beat that it finds excuses none it missed.
    void aBeatThatCameTooLate()
    {
        Keys bench;
        QCOMPARE(bench.pressFeed(), int(Ok));
        bench.now += 100; // the longest that wire moves after a beat
        bench.live(0);
        bench.pass(1);
        QCOMPARE(bench.events().last(), Event::WireStops);
        QCOMPARE(bench.journal.entries().last().cause, QString("no heartbeat"));
        QCOMPARE(bench.feed(true), int(WrongState)); // the same press, repeated
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
