#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <cstdio>
#include <sys/resource.h>

#include "bench/fleet/cells.h"
#include "bench/fleet/localbroker.h"
#include "bench/fleet/pendants.h"
#include "bench/fleet/processor.h"
#include "bench/fleet/reader.h"
#include "bench/fleet/report.h"
#include "link/mqtt/mqttlink.h"
#include "schema/names.h"

using fleet::Cells;
using tessa::LinkRequest;

namespace {

constexpr int threads = 2;
constexpr int limitMs = 120000;
constexpr int callMs = 1600;
constexpr int pauseMs = 20; // between two requests of the pendant
constexpr int drainMs = 5000;
const QString node = welmo::names::welderStateRate;

template<typename Condition>
bool waitFor(Condition condition, int timeoutMs = limitMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    // With a time limit processEvents() would not wait for events, so a timer ends it.
    QTimer wake;
    wake.start(5);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    return condition();
}

// A thousand cells need four thousand descriptors.
void raiseDescriptorLimit()
{
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

int fail(const char *what)
{
    std::fprintf(stderr, "fleet: %s\n", what);
    return 2;
}

struct Size
{
    int cells;
    int pendants; // besides the one that asks
    int rate; // values a second of each cell
    int seconds;
};

/// What every kind of thread and the broker used between two looks, in percent of a core.
class Shares
{
public:
    explicit Shares(const fleet::LocalBroker &broker)
        : m_broker(broker)
        , m_before(now())
    {
        m_clock.start();
    }
    double seconds() const { return double(m_clock.elapsed()) / 1000; }
    QMap<QString, double> percent() const
    {
        QMap<QString, double> shares;
        const QMap<QString, double> after = now();
        for (auto one = after.begin(); one != after.end(); ++one)
            shares[one.key()] = (one.value() - m_before.value(one.key())) / seconds() * 100;
        return shares;
    }

private:
    QMap<QString, double> now() const
    {
        QMap<QString, double> seconds = fleet::processorSeconds();
        seconds[QStringLiteral("broker")] = fleet::processorSeconds(m_broker.process());
        return seconds;
    }

    const fleet::LocalBroker &m_broker;
    QMap<QString, double> m_before;
    QElapsedTimer m_clock;
};

std::vector<qint64> askFor(int seconds, welmo::links::MqttLink *link, const Cells &cells)
{
    std::vector<qint64> took;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < qint64(seconds) * 1000) {
        const qint64 before = cells.nowUs();
        if (link->call({LinkRequest::Kind::Get, node, {}, {}}, callMs).fromController())
            took.push_back(cells.nowUs() - before);
        waitFor([] { return false; }, pauseMs);
    }
    return took;
}

int measure(const fleet::LocalBroker &broker, const Size &size)
{
    Cells cells(broker.address(), size.cells, size.rate, threads);
    if (!waitFor([&] { return cells.areOnline(); }))
        return fail("not every cell came online");
    fleet::Reader reader(broker.address(), cells);
    fleet::Pendants pendants(broker.address(), 1, size.pendants);
    welmo::links::MqttLink link({broker.address(), Cells::nameOf(0)});
    link.open();
    if (!waitFor([&] { return link.isUp() && pendants.areUp(); }))
        return fail("not every link came up");
    const int lossesBefore = pendants.losses();
    int losses = 0;
    QObject::connect(&link, &welmo::links::MqttLink::upChanged,
                     [&losses](bool up) { losses += up ? 0 : 1; });

    cells.setTelling(true);
    const Shares shares(broker);
    std::vector<qint64> calls = askFor(size.seconds, &link, cells);
    const QMap<QString, double> percent = shares.percent();
    const double seconds = shares.seconds();
    cells.setTelling(false);
    waitFor([&] { return reader.delivered() >= cells.sent(); }, drainMs);

    losses += pendants.losses() - lossesBefore;
    std::vector<qint64> latencies = reader.latencies();
    std::printf("%d cells at %d Hz, %d pendants, for %.0f s\n", size.cells, size.rate,
                size.pendants + 1, seconds);
    std::printf("delivered %lld of %lld values\n", reader.delivered(), cells.sent());
    std::printf("from a cell to a reader of all: %s\n", qPrintable(fleet::spread(latencies)));
    std::printf("a pendant's request and answer: %s\n", qPrintable(fleet::spread(calls)));
    std::printf("a pendant's link was lost %d times\n", losses);
    std::printf(
        "share of a core: broker %.1f %%, cells %.1f %%, reader %.1f %%, pendants %.1f %%\n",
        percent["broker"], percent["cell"], percent["reader"],
        percent["pendant"] + percent["fleet"]);
    return losses == 0 && reader.delivered() == cells.sent() ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const QCommandLineOption cells("cells", "How many cells.", "N", "200");
    const QCommandLineOption pendants(
        "pendants", "How many pendants besides the one that asks, each at a cell of its own.", "N",
        "0");
    const QCommandLineOption rate("rate", "Values a second of each.", "HZ", "10");
    const QCommandLineOption seconds("seconds", "For how long.", "S", "10");
    const QCommandLineOption port("port", "The broker's port on this machine.", "PORT", "18830");
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Many cells in one process against one broker of its own, with a reader of all cells.\n"
        "Exit status: 0 nothing was lost, 1 something was, 2 it could not be measured.");
    parser.addHelpOption();
    parser.addOptions({cells, pendants, rate, seconds, port});
    parser.process(app);
    if (parser.value(pendants).toInt() >= parser.value(cells).toInt())
        return fail("there are fewer cells than pendants");
    raiseDescriptorLimit();
    const fleet::LocalBroker broker(parser.value(port).toInt());
    return measure(broker,
                   {parser.value(cells).toInt(), parser.value(pendants).toInt(),
                    parser.value(rate).toInt(), parser.value(seconds).toInt()});
}
