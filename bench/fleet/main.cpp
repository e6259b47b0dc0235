#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMutex>
#include <QTimer>
#include <cstdio>
#include <sys/resource.h>

#include "bench/fleet/cells.h"
#include "bench/fleet/localbroker.h"
#include "bench/fleet/report.h"
#include "link/mqtt/mqttlink.h"
#include "schema/names.h"

using fleet::Cells;
using tessa::LinkRequest;

namespace {

constexpr int threads = 2;
constexpr int limitMs = 120000;
constexpr int callMs = 1600;
const QString node = welmo::names::welderStateRate;

/// Reads the value of every cell, as tools of a plant would.
class Reader
{
public:
    Reader(const welmo::links::BrokerAddress &address, const Cells &cells)
        : m_cells(cells)
        , m_client({address, QStringLiteral("reader")},
                   {[this] { m_client.subscribe(QStringLiteral("welmo/1/+/value/") + node, 0); },
                    [](const QString &, bool) {},
                    [this](const welmo::links::MqttMessage &message) { take(message); }})
    {
        m_client.start();
    }

    qint64 delivered() const { return m_delivered; }
    std::vector<qint64> latencies()
    {
        const QMutexLocker lock(&m_mutex);
        return m_latencies;
    }

private:
    void take(const welmo::links::MqttMessage &message)
    {
        if (message.retained)
            return;
        const qint64 now = m_cells.nowUs();
        const QVariant value = welmo::links::protocol::toValue(message).value_or(QVariant());
        const int cell = Cells::numberOf(message.topic.section('/', 2, 2));
        const QMutexLocker lock(&m_mutex);
        ++m_delivered;
        m_latencies.push_back(
            now - m_cells.sentAtUs(cell, value.toMap().value(QStringLiteral("rate")).toInt()));
    }

    const Cells &m_cells;
    QMutex m_mutex;
    std::vector<qint64> m_latencies;
    std::atomic<qint64> m_delivered{0};
    welmo::links::MqttClient m_client; // the last member, so that its thread ends first
};

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

double ownSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

int fail(const char *what)
{
    std::fprintf(stderr, "fleet: %s\n", what);
    return 2;
}

int measure(const fleet::LocalBroker &broker, int count, int rate, int seconds)
{
    Cells cells(broker.address(), count, rate, threads);
    if (!waitFor([&] { return cells.areOnline(); }))
        return fail("not every cell came online");
    Reader reader(broker.address(), cells);
    welmo::links::MqttLink link({broker.address(), Cells::nameOf(count / 2)});
    link.open();
    if (!waitFor([&] { return link.isUp(); }))
        return fail("the link did not come up");
    qint64 heard = 0;
    QObject::connect(&link, &welmo::links::MqttLink::notified, [&heard] { ++heard; });
    link.call({LinkRequest::Kind::Watch, node, {}, {}}, callMs);

    const double ownBefore = ownSeconds();
    const double brokerBefore = broker.processorSeconds();
    std::vector<qint64> calls;
    QElapsedTimer took;
    took.start();
    cells.setTelling(true);
    int losses = 0;
    QObject::connect(&link, &welmo::links::MqttLink::upChanged,
                     [&losses](bool up) { losses += up ? 0 : 1; });
    while (took.elapsed() < qint64(seconds) * 1000) {
        const qint64 before = cells.nowUs();
        if (link.call({LinkRequest::Kind::Get, node, {}, {}}, callMs).fromController())
            calls.push_back(cells.nowUs() - before);
        waitFor([] { return false; }, 20);
    }
    cells.setTelling(false);
    const double elapsed = double(took.elapsed()) / 1000;
    const double own = (ownSeconds() - ownBefore) / elapsed * 100;
    const double brokers = (broker.processorSeconds() - brokerBefore) / elapsed * 100;
    waitFor([&] { return reader.delivered() >= cells.sent(); }, 5000);

    std::vector<qint64> latencies = reader.latencies();
    std::printf("%d cells at %d Hz for %.0f s\n", count, rate, elapsed);
    std::printf("delivered %lld of %lld values\n", reader.delivered(), cells.sent());
    std::printf("from a cell to a reader of all: %s\n", qPrintable(fleet::spread(latencies)));
    std::printf("a pendant's request and answer: %s\n", qPrintable(fleet::spread(calls)));
    std::printf("the pendant heard %lld values of its cell; its link was lost %d times\n", heard,
                losses);
    std::printf("processor: cells and readers %.0f %%, broker %.0f %% of one core\n", own, brokers);
    return losses == 0 && reader.delivered() == cells.sent() ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const QCommandLineOption cells("cells", "How many cells.", "N", "200");
    const QCommandLineOption rate("rate", "Values a second of each.", "HZ", "10");
    const QCommandLineOption seconds("seconds", "For how long.", "S", "10");
    const QCommandLineOption port("port", "The broker's port on this machine.", "PORT", "18830");
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Many cells in one process against one broker of its own, and one pendant's link.\n"
        "Exit status: 0 nothing was lost, 1 something was, 2 it could not be measured.");
    parser.addHelpOption();
    parser.addOptions({cells, rate, seconds, port});
    parser.process(app);
    raiseDescriptorLimit();
    const fleet::LocalBroker broker(parser.value(port).toInt());
    return measure(broker, parser.value(cells).toInt(), parser.value(rate).toInt(),
                   parser.value(seconds).toInt());
}
