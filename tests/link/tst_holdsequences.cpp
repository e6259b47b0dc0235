#include <QtTest>
#include <functional>
#include <random>

#include "farend.h"
#include "support/datarows.h"

using namespace testsupport;
using welmo::controller::Faults;
using welmo::controller::Journal;
using Event = Journal::Event;
using Fault = Faults::Fault;

namespace {

constexpr int beatMs = 25;
constexpr int lastProofToStill = 100; // ms that wire may move on after a beat
const QString wireFeed = QStringLiteral("arc_weld.wire_feed");

struct Key
{
    QString payload;
    QString child;
    bool held = false;
    int press = 0; // the number of its last press
    int started = 0; // the last press that started wire
    qint64 lastProof = 0; // when a beat named its press last
    int denied = 0; // the last press that a beat left out
};

/// A pendant with two keys and the real controller, on one clock. What the controller's journal
/// says is compared with what the keys did.
struct Scene
{
    Scene(quint32 seed, FarEnd &end)
        : random(seed)
        , farEnd(end)
    {
        farEnd.greeted = [this](int theirs) { up = up || theirs == session; };
        farEnd.broken = [this] { goDown(); };
        for (int steps = 10 + choose(25); steps > 0; --steps) {
            actions[size_t(choose(int(actions.size())))]();
            live(5 + choose(120));
        }
        faults.clear();
        letGo();
        live(2000);
    }
    int choose(int count) { return int(random() % quint32(count)); }
    Key &anyKey() { return keys[size_t(choose(2))]; }
    QVector<int> held() const
    {
        QVector<int> held;
        for (const Key &key : keys) {
            if (key.held)
                held.append(key.press);
        }
        std::sort(held.begin(), held.end());
        return held;
    }

    void press()
    {
        Key &key = anyKey();
        if (key.held)
            return;
        key.held = true;
        key.press = ++presses;
        beat();
        ask(key, session);
    }
    void release()
    {
        Key &key = anyKey();
        key.held = false;
        ask(key, session);
    }
    /// Lets both keys go; the commands of that get lost.
    void letGo()
    {
        for (Key &key : keys)
            key.held = false;
    }
    /// Lets the key go that moves the wire, and holds the other; the command of that gets lost.
    void changeKeys()
    {
        if (!mover)
            return;
        Key &other = mover == &keys[0] ? keys[1] : keys[0];
        if (!other.held)
            other.press = ++presses;
        other.held = true;
        mover->held = false;
    }
    /// Sends what was on its way when a session ended: a beat and a command.
    void sendOld()
    {
        farEnd.beat(-1, {presses + 1000});
        for (Key &key : keys)
            key.denied = 0; // the old beat replaces one that the controller has not read yet
        farEnd.tick();
        Key key = anyKey();
        key.held = true;
        ask(key, held().isEmpty() ? session : session - 1);
    }
    void ask(const Key &key, int inSession)
    {
        farEnd.ask(inSession,
                   {welmo::controller::Request::Kind::Command, wireFeed, key.payload,
                    QVariantMap{{key.child, key.held}}});
        compare();
    }
    void goDown()
    {
        up = false;
        lastBeat = -1;
        ++session;
    }
    void kill()
    {
        letGo();
        pass(choose(300));
        goDown(); // the next pendant begins a new session
    }
    void toggle(Fault fault) { faults.set(fault, !faults.isOn(fault)); }

    void beat()
    {
        if (!up)
            return;
        farEnd.beat(session, held());
        lastBeat = now;
        for (Key &key : keys) {
            key.lastProof = key.held ? now : key.lastProof;
            key.denied = key.held ? key.denied : key.press;
        }
    }
    /// Lets time pass while the pendant works.
    void live(int ms)
    {
        for (; ms > 0; ms -= 5) {
            pass(5);
            if (!up)
                farEnd.greet(session);
            if (now % beatMs == 0)
                beat();
        }
    }
    /// Lets time pass on the controller alone, which looks at the clock every 10 ms.
    void pass(int ms)
    {
        for (; ms > 0; --ms) {
            farEnd.setNow(++now);
            if (now % 10 == 0)
                farEnd.tick();
            compare();
            if (!mover || now % 10 != 0)
                continue;
            complain(mover->denied == mover->started, "wire moves after a beat without its key");
            complain(faults.isOn(Fault::WelderError) || faults.isOn(Fault::WireStuck),
                     "wire moves in a fault");
        }
    }

    void compare()
    {
        const QVector<Journal::Entry> entries = journal.entries();
        for (; seen < entries.size(); ++seen) {
            const Event event = entries.at(seen).event;
            mover = event == Event::WireStops ? nullptr : &keys[event == Event::WireFeeds ? 0 : 1];
            if (!mover)
                continue;
            Key &key = *mover;
            // A key that was let go after the last beat still counts as held.
            complain(!key.held && key.lastProof != lastBeat, "started without the key");
            complain(key.started == key.press, "started twice for one press");
            key.started = key.press;
        }
        complain(mover && now - mover->lastProof > lastProofToStill, "wire moves without proof");
    }
    void complain(bool wrong, const char *what)
    {
        if (wrong && fault.isEmpty())
            fault = QStringLiteral("%1: %2").arg(now).arg(what);
    }

    const std::vector<std::function<void()>> actions{
        [this] { press(); },
        [this] { press(); },
        [this] { press(); },
        [this] { release(); },
        [this] { release(); },
        [this] { letGo(); },
        [this] { changeKeys(); },
        [this] { sendOld(); },
        [this] { kill(); },
        [this] { pass(20 + choose(400)); }, // while the pendant hangs
        [this] { ask(keys[keys[0].press > keys[1].press ? 0 : 1], session); }, // sent twice
        [this] { toggle(Fault::WelderError); },
        [this] { toggle(Fault::WireStuck); },
        [this] { toggle(Fault::LinkDown); },
        [this] { faults.setDelay(faults.delay() > 0 ? 0 : 40 + choose(200)); },
        [this] { faults.loseAnswers(1); },
        [this] { faults.setCode(wireFeed, 99, 1); },
    };
    std::mt19937 random;
    FarEnd &farEnd;
    qint64 now = 1000;
    Faults &faults = farEnd.faults();
    const Journal &journal = farEnd.journal();
    int session = 1;
    bool up = false;
    qint64 lastBeat = -1; // of this session
    std::array<Key, 2> keys{Key{"wire_feel", "feed"}, Key{"wire_feel_back", "reverse"}};
    int presses = 0;
    int seen = 0;
    Key *mover = nullptr; // the key that moves the wire
    QString fault;
};

using FarEndPointer = std::unique_ptr<FarEnd>;
using MakeFarEnd = FarEndPointer (*)();

} // namespace

/// In random sequences of events (WELMO_SEQUENCES of them), wire moves only while a key is held on
/// a living pendant.
class tst_HoldSequences : public QObject
{
    Q_OBJECT
private slots:
    void wireFollowsTheHand_data()
    {
        addRows<MakeFarEnd>({{"embedded", [] { return FarEndPointer(new EmbeddedEnd); }},
                             {"network", [] { return FarEndPointer(new NetworkEnd); }}});
    }
    void wireFollowsTheHand()
    {
        const auto &[name, make] = currentRow<MakeFarEnd>();
        const int count = qMax(500, qEnvironmentVariableIntValue("WELMO_SEQUENCES"));
        QMap<QString, int> stops; // by cause
        for (quint32 seed = 1; seed <= quint32(count); ++seed) {
            const auto farEnd = make();
            const Scene scene(seed, *farEnd);
            QVERIFY2(scene.fault.isEmpty(),
                     qPrintable(QStringLiteral("seed %1, %2").arg(seed).arg(scene.fault)));
            const auto entries = scene.journal.entries();
            QVERIFY(entries.size() % 2 == 0); // whatever started has stopped
            for (int i = 1; i < entries.size(); i += 2)
                ++stops[entries.at(i).cause];
        }
        for (const char *cause : {"wire_feel", "wire_feel_back", "no heartbeat", "no key held",
                                  "another key held", "pendant lost", "welder error", "wire stuck"})
            QVERIFY2(stops.value(cause) > 10, cause);
        qInfo("%d sequences", count);
    }
};

QTEST_GUILESS_MAIN(tst_HoldSequences)
#include "tst_holdsequences.moc"
