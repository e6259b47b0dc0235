#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>
#include <random>

#include "linkwords.h"
#include "schema/names.h"
#include "simulatedcell.h"
#include "support/heap.h"

using testsupport::heapInUse;
using welmo::controller::Journal;
using welmo::controller::Reply;
using RequestKind = welmo::controller::Request::Kind;
namespace names = welmo::names;

namespace {

constexpr qint64 beatMs = 25;
constexpr qint64 hourMs = qint64(3600) * 1000;
// The most bytes that a cell may hold, whatever its users do.
constexpr qint64 ceiling = qint64(16) * 1024 * 1024;
// The most bytes that a cell may hold right after its start.
constexpr qint64 startCeiling = qint64(3) * 1024 * 1024;
constexpr qint64 largestStore = qint64(8) * 1024 * 1024;

const QString wireFeed = QStringLiteral("arc_weld.wire_feed");
const QString seam = QStringLiteral("MoveL p3,v1000,fine,torch1,wobj0\n"
                                    "ArcOn \"arcondata1\",\"arcdata1\"\n"
                                    "WMoveL Offs(p3,0,100,0),v50,fine,torch1\n"
                                    "ArcOff \"arcoffdata1\"\n");

/// A cell that is sometimes started again, and a pendant that comes, works and leaves.
class Plant
{
public:
    explicit Plant(quint32 seed)
        : m_random(seed)
        , m_before(heapInUse())
    { }

    void liveFor(int hours)
    {
        start();
        while (fault.isEmpty() && m_now < hours * hourMs) {
            visit();
            leave();
            pass(qint64(1000) * choose(20 * 60));
            check(isStill(), "wire moves with nobody there");
            if (choose(20) == 0)
                start();
        }
        check(QFileInfo(storeFile()).size() < largestStore, "the store grows");
        m_cell.reset();
        const qint64 before = heapInUse();
        start();
        check(heapInUse() - before < startCeiling, "a start holds what was written before");
    }
    QString fault;
    qint64 most = 0; // bytes that the cell held

private:
    int choose(int count) { return int(m_random() % quint32(count)); }
    QString storeFile() const { return m_folder.filePath(QStringLiteral("controller.db")); }
    void check(bool good, const char *what)
    {
        most = qMax(most, heapInUse() - m_before);
        if (fault.isEmpty() && !good)
            fault = QStringLiteral("%1 ms: %2").arg(m_now).arg(QLatin1String(what));
        if (fault.isEmpty() && most > ceiling)
            fault = QStringLiteral("%1 ms: %2 bytes are held").arg(m_now).arg(most);
    }

    void start()
    {
        m_cell.reset();
        m_cell = std::make_unique<SimulatedCell>(m_folder.path());
        m_cell->now = m_now;
    }
    void pass(qint64 ms, const QVector<int> *presses = nullptr)
    {
        const qint64 end = m_now + ms;
        while (m_now < end) {
            m_now = qMin(end, m_now + (presses ? beatMs : 500));
            m_cell->now = m_now;
            if (presses)
                m_cell->deliver(m_pendant.beat(*presses, m_now));
            m_cell->service->tick();
            SimulatedCell::takeSent();
        }
    }
    void live(qint64 ms, const QVector<int> &presses = {}) { pass(ms, &presses); }
    Reply ask(const welmo::controller::Request &request)
    {
        const auto reply =
            m_pendant.answerIn(m_cell->deliver(m_pendant.request(request, m_now + 1000)));
        check(reply.has_value(), "no answer");
        return reply.value_or(Reply::refused(-1, {}));
    }
    bool isStill() const
    {
        const auto entries = m_cell->service->journal().entries();
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
            if (entry->event <= Journal::Event::WireStops)
                return entry->event == Journal::Event::WireStops;
        }
        return true;
    }

    void visit()
    {
        m_pendant = SimulatedPendant{QStringLiteral("pendant%1").arg(choose(4))};
        const auto welcome =
            m_pendant.answerIn(m_cell->deliver(m_pendant.hello(QString::number(++m_visits))));
        check(welcome && welcome->ok(), "not greeted");
        if (!fault.isEmpty())
            return;
        m_pendant.session = welcome->value.toMap().value("session").toString();
        for (auto known = m_current.begin(); known != m_current.end(); ++known)
            check(currentIn(known.key()) == *known, "what was acknowledged is gone");
        for (int jobs = 1 + choose(4); jobs > 0; --jobs) {
            live(qint64(1000) * choose(120));
            m_jobs[size_t(choose(int(m_jobs.size())))]();
        }
    }
    double currentIn(int number)
    {
        return ask({RequestKind::Get, arcOn, fileName(number)})
            .value.toMap()
            .value("current")
            .toDouble();
    }
    void write()
    {
        for (int count = choose(30); count > 0; --count) {
            const int number = 1 + choose(40);
            const int current = 1 + choose(400);
            QVariantMap content = file(number, current);
            content["annotation"] = QString(choose(2000), QChar('a' + choose(26)));
            check(ask({RequestKind::Set, arcOn, fileName(number), content}).ok(), "not written");
            m_current[number] = current;
        }
    }
    void feed()
    {
        const QVector<int> presses{++m_presses};
        live(beatMs, presses);
        const Reply reply =
            ask({RequestKind::Command, wireFeed, "wire_feel", QVariantMap{{"feed", true}}});
        check(reply.ok() != isStill(), "wire does not do as it is told");
        live(choose(3000), presses);
        if (choose(2) == 0)
            return; // the next job finds the wire moving
        live(4 * beatMs);
        check(isStill(), "wire moves without a key");
    }
    void run()
    {
        const QVariantMap program{{"name", "seam"}, {"text", seam}};
        if (!ask({RequestKind::Command, names::loadProgram, {}, program}).ok())
            return; // another program is paused
        ask({RequestKind::Command, names::runProgram});
        live(qint64(1000) * choose(40));
        ask({RequestKind::Command, names::stopProgram});
    }
    /// Sends more at once than the cell has room for.
    void flood()
    {
        welmo::links::MqttMessage large = m_pendant.request({RequestKind::Get, arcOn}, m_now + 100);
        const QByteArray request = large.payload;
        for (int i = 0; i < 1000; ++i) {
            large.payload = QByteArray(200 * 1024, ' ') + request; // each has bytes of its own
            mail::client()->handlers.message(large);
        }
        check(true, "");
        while (QCoreApplication::processEvents(), !SimulatedCell::takeSent().isEmpty()) { }
        live(5000); // until the pendant may send again
    }
    void leave()
    {
        switch (choose(4)) {
        case 0: // the pendant is switched off
            m_cell->deliver(m_pendant.end());
            check(isStill(), "wire moves after the end");
            break;
        case 1: // the pendant is gone, perhaps with a key held
            pass(500);
            break;
        case 2: // the broker is lost for a moment
            mail::client()->handlers.offline(QStringLiteral("gone"), true);
            QCoreApplication::processEvents();
            check(isStill(), "wire moves without a broker");
            mail::client()->handlers.online();
            QCoreApplication::processEvents();
            break;
        default: // the cell is started again
            start();
        }
    }

    std::mt19937 m_random;
    const QTemporaryDir m_folder;
    const qint64 m_before;
    const std::vector<std::function<void()>> m_jobs{[this] { write(); }, [this] { write(); },
                                                    [this] { feed(); },  [this] { feed(); },
                                                    [this] { run(); },   [this] { flood(); }};
    qint64 m_now = 1000;
    std::unique_ptr<SimulatedCell> m_cell;
    SimulatedPendant m_pendant;
    QMap<int, double> m_current; // what was acknowledged, by file
    int m_visits = 0;
    int m_presses = 0;
};

} // namespace

/// Simulated hours of a cell (WELMO_HOURS, at least 2): its memory stays bounded, nothing
/// acknowledged is lost, and wire never moves without a hand.
class tst_CellHours : public QObject
{
    Q_OBJECT
private slots:
    void staysAsItWas()
    {
        Plant plant(17);
        plant.liveFor(qMax(2, qEnvironmentVariableIntValue("WELMO_HOURS")));
        qInfo("%lld KB held at most", plant.most / 1024);
        QVERIFY2(plant.fault.isEmpty(), qPrintable(plant.fault));
    }
};

QTEST_GUILESS_MAIN(tst_CellHours)
#include "tst_cellhours.moc"
