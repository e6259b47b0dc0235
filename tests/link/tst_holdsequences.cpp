#include <QtTest>
#include <random>

#include "link/farend.h"

using controller::Faults;
using controller::Journal;
using links::Exchange;
using links::FarEnd;
using tessa::LinkReply;
using tessa::LinkRequest;
using Event = Journal::Event;
using Fault = Faults::Fault;

namespace {

constexpr int beatMs = 25;
constexpr int callLimitMs = 1600;
constexpr int retryMs = 500;
constexpr int lastProofToStill = 100; // the longest that wire moves on a beat
const QString wireFeed = QStringLiteral("arc_weld.wire_feed");
const QString welderState = QStringLiteral("arc_weld.welder_state");

struct Key
{
    QString payload;
    QString child;
    bool held = false;
    int press = 0; // the number of its last one
    int started = 0; // the press that wire was started for last
};

/// A pendant as the host and its keys behave, in front of the real far side, on one clock. What the
/// far side's journal says is held against what was done here.
class Scene
{
public:
    explicit Scene(quint32 seed)
        : m_random(seed)
        , m_farEnd({}, m_faults, m_journal, [this] { return m_now; })
    {
        QObject::connect(&m_farEnd, &FarEnd::greeted,
                         [this](int session) { m_up = m_up || session == m_session; });
        QObject::connect(&m_farEnd, &FarEnd::broken, [this](int session) {
            if (session == m_session)
                goDown();
        });
        m_farEnd.greet(m_session);
    }

    void play()
    {
        for (int steps = 10 + choose(25); steps > 0; --steps) {
            act();
            live(5 + choose(120));
        }
        m_faults.clear();
        letGo();
        live(3 * retryMs);
    }
    /// What is wrong with the journal; empty when nothing is.
    QString fault() const { return m_fault; }
    QString story() const { return m_story.join(QStringLiteral(", ")); }
    QVector<Journal::Entry> journal() const { return m_journal.entries(); }

private:
    int choose(int count) { return int(m_random() % quint32(count)); }

    void act()
    {
        static const std::vector<std::pair<const char *, void (Scene::*)()>> actions{
            {"press", &Scene::press},       {"press", &Scene::press},
            {"press", &Scene::press},       {"release", &Scene::release},
            {"release", &Scene::release},   {"slip", &Scene::letGo},
            {"repeat", &Scene::repeat},     {"old", &Scene::sendOld},
            {"hang", &Scene::hang},         {"kill", &Scene::kill},
            {"error", &Scene::toggleError}, {"stuck", &Scene::toggleStuck},
            {"link", &Scene::toggleLink},   {"delay", &Scene::toggleDelay},
            {"lose", &Scene::loseAnswer},   {"refuse", &Scene::refuseOnce},
        };
        const auto &[name, action] = actions[size_t(choose(int(actions.size())))];
        m_story.append(QStringLiteral("%1 %2").arg(m_now).arg(QLatin1String(name)));
        (this->*action)();
    }

    // What a hand does.
    void press()
    {
        Key &key = anyKey();
        if (key.held)
            return;
        key.held = true;
        key.press = ++m_presses;
        beat();
        move(key, true);
    }
    void release()
    {
        Key &key = anyKey();
        if (!key.held)
            return;
        key.held = false;
        move(key, false);
    }
    // The package: it checks the link on the way down, the welder's state both ways.
    void move(Key &key, bool down)
    {
        if (down && !m_up)
            return;
        const LinkReply state = call({LinkRequest::Kind::Get, welderState, "state", {}});
        if (state.value != QVariant("error"))
            call(command(key, down));
    }

    // What goes wrong on the pendant.
    void hang() { pass(20 + choose(400)); }
    // The key comes up, and its command gets lost.
    void letGo()
    {
        for (Key &key : m_keys)
            key.held = false;
    }
    void kill()
    {
        letGo();
        pass(choose(300));
        goDown(); // and a new one starts
        m_farEnd.greet(m_session);
    }
    void repeat()
    {
        if (m_up && m_presses > 0)
            ask(command(lastPressed(), true), m_session);
    }
    // What was on its way when a session ended: a command, or a beat that may speak for no other.
    void sendOld()
    {
        constexpr int longEnded = -1;
        m_farEnd.beat(longEnded, m_presses + 1000);
        m_farEnd.tick();
        ask(command(anyKey(), true), isAnyHeld() ? m_session - 1 : m_session);
    }

    // And elsewhere.
    void toggleError() { toggle(Fault::WelderError); }
    void toggleStuck() { toggle(Fault::WireStuck); }
    void toggleLink() { toggle(Fault::LinkDown); }
    void toggle(Fault fault) { m_faults.set(fault, !m_faults.isOn(fault)); }
    void toggleDelay()
    {
        static const std::vector<int> delays{40, 90, 200, 2000};
        m_faults.setDelay(m_faults.delay() > 0 ? 0 : delays[size_t(choose(4))]);
    }
    void loseAnswer() { m_faults.loseAnswers(1); }
    void refuseOnce() { m_faults.setCode(wireFeed, 99, 1); }

    const Key &lastPressed() const { return m_keys[m_keys[0].press > m_keys[1].press ? 0 : 1]; }
    Key &anyKey() { return m_keys[size_t(choose(2))]; }
    bool isAnyHeld() const { return m_keys[0].held || m_keys[1].held; }
    static LinkRequest command(const Key &key, bool down)
    {
        return {LinkRequest::Kind::Command, wireFeed, key.payload, QVariantMap{{key.child, down}}};
    }

    std::shared_ptr<Exchange> ask(const LinkRequest &request, int session)
    {
        const auto exchange = std::make_shared<Exchange>(request);
        m_farEnd.ask(session, exchange);
        compare();
        return exchange;
    }
    /// As the link: waits without a beat, and goes down when nothing comes.
    LinkReply call(const LinkRequest &request)
    {
        if (!m_up)
            return {LinkReply::NotConnected, {}};
        const auto exchange = ask(request, m_session);
        for (int waited = 0; !exchange->isSettled() && waited < callLimitMs; waited += 5)
            pass(5);
        const LinkReply reply = exchange->wait(0);
        if (!reply.fromController() && m_up)
            goDown();
        return reply;
    }
    void goDown()
    {
        m_up = false;
        ++m_session;
        m_nextGreeting = m_now + retryMs;
    }

    void beat()
    {
        if (!m_up)
            return;
        m_farEnd.beat(m_session, isAnyHeld() ? m_presses : 0);
        m_nextBeat = m_now + beatMs;
        if (isAnyHeld())
            m_lastProof = m_now;
    }
    /// Time passes on a pendant that works.
    void live(int ms)
    {
        for (; ms > 0; --ms) {
            pass(1);
            if (!m_up && m_now >= m_nextGreeting) {
                m_nextGreeting = m_now + retryMs;
                m_farEnd.greet(m_session);
            }
            if (m_now >= m_nextBeat)
                beat();
        }
    }
    /// Time passes on the far side only, which looks at it every 10 ms.
    void pass(int ms)
    {
        for (; ms > 0; --ms) {
            ++m_now;
            if (m_now % 10 == 0)
                m_farEnd.tick();
            compare();
        }
    }

    void compare()
    {
        const QVector<Journal::Entry> entries = m_journal.entries();
        for (; m_seen < entries.size(); ++m_seen) {
            const Journal::Entry &entry = entries.at(m_seen);
            m_moves = entry.event != Event::WireStops;
            if (m_moves)
                compareStart(entry);
        }
        if (m_moves && m_now - m_lastProof > lastProofToStill)
            complain(QStringLiteral("wire moves without proof"));
    }
    void compareStart(const Journal::Entry &entry)
    {
        Key &key = m_keys[entry.event == Event::WireFeeds ? 0 : 1];
        if (!key.held)
            complain(QStringLiteral("started without the key"));
        if (key.started == key.press)
            complain(QStringLiteral("started twice for one press"));
        key.started = key.press;
    }
    void complain(const QString &what)
    {
        if (m_fault.isEmpty())
            m_fault = QStringLiteral("%1: %2").arg(m_now).arg(what);
    }

    std::mt19937 m_random;
    qint64 m_now = 1000;
    Faults m_faults;
    Journal m_journal;
    FarEnd m_farEnd;
    int m_session = 1;
    bool m_up = false;
    qint64 m_nextGreeting = 0;
    qint64 m_nextBeat = 0;
    qint64 m_lastProof = 0;
    std::array<Key, 2> m_keys{Key{"wire_feel", "feed"}, Key{"wire_feel_back", "reverse"}};
    int m_presses = 0;
    int m_seen = 0;
    bool m_moves = false;
    QString m_fault;
    QStringList m_story;
};

} // namespace

/// Whatever happens, in whatever order: wire moves only while a key is held on a living pendant.
class tst_HoldSequences : public QObject
{
    Q_OBJECT
private slots:
    void wireFollowsTheHand()
    {
        constexpr quint32 sequences = 1000;
        QMap<QString, int> stops; // by cause
        for (quint32 seed = 1; seed <= sequences; ++seed) {
            Scene scene(seed);
            scene.play();
            QVERIFY2(
                scene.fault().isEmpty(),
                qPrintable(
                    QStringLiteral("seed %1, %2; %3").arg(seed).arg(scene.fault(), scene.story())));
            const auto entries = scene.journal();
            QVERIFY(entries.size() % 2 == 0); // all that started has stopped
            for (const Journal::Entry &entry : entries) {
                if (entry.event == Event::WireStops)
                    ++stops[entry.cause];
            }
        }
        for (const char *cause : {"wire_feel", "wire_feel_back", "no heartbeat", "no key held",
                                  "pendant lost", "welder error", "wire stuck"})
            QVERIFY2(stops.value(cause) > 20, qPrintable(QString(cause)));
    }
};

QTEST_GUILESS_MAIN(tst_HoldSequences)
#include "tst_holdsequences.moc"
