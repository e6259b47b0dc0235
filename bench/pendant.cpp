#include "pendant/app/pendantapp.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <algorithm>
#include <sys/resource.h>

#include "bench/bench.h"
#include "bench/connectedhost.h"
#include "bench/floodlink.h"
#include "pando/frame.h"

namespace bench {

namespace {

using welmo::controller::Journal;

/// The real pendant with the real library, connected, on the page with the monitor beside it.
class Pendant
{
public:
    Pendant()
        : m_app({QStringLiteral("en"), QStringLiteral("light"), m_folder.path(),
                 QStringLiteral(WELMO_MODULE)},
                [this](const welmo::pendant::Options &) {
                    auto link = std::make_unique<FloodLink>();
                    m_link = link.get();
                    return welmo::pendant::Connection{std::move(link), m_link->faults()};
                })
    {
        m_app.start();
        waitUntilConnected(service());
        pando::frame().center->switchTo(QStringLiteral("welmo.page"));
        pando::frame().rightSide->switchTo(QStringLiteral("welmo.page"));
        pando::frame().rightSide->show();
        for (int i = 0; i < FloodLink::signalCount; ++i)
            service()->watch(nullptr, FloodLink::node(i), true);
        QCoreApplication::processEvents();
    }

    XService *service() { return m_app.host()->service(); }
    tessa::PhysicalKeys *keys() { return m_app.host()->keys(); }
    FloodLink &link() { return *m_link; }

private:
    QTemporaryDir m_folder;
    FloodLink *m_link = nullptr;
    welmo::pendant::PendantApp m_app;
};

void runFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &t) {
        return double(t.tv_sec) + double(t.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// Of the whole process, in percent of one core.
double share(int ms)
{
    const double before = processorSeconds();
    QElapsedTimer elapsed;
    elapsed.start();
    runFor(ms);
    return (processorSeconds() - before) / (double(elapsed.nsecsElapsed()) / 1e9) * 100;
}

// The longest time between two turns of the event loop, which a timer runs every millisecond, in
// ms.
double longestGap(int ms)
{
    QTimer ticks;
    ticks.setTimerType(Qt::PreciseTimer);
    QElapsedTimer since;
    double longest = 0;
    QObject::connect(&ticks, &QTimer::timeout, [&] {
        longest = std::max(longest, double(since.nsecsElapsed()) / 1e6);
        since.start();
    });
    ticks.start(1);
    since.start();
    runFor(ms);
    return longest;
}

void floodPendant(Bench &bench, Pendant &pendant)
{
    const int window = bench.isQuick() ? 100 : 1000;
    const auto under = [&pendant, window](double (*measured)(int), bool flood) {
        return [&pendant, window, measured, flood] {
            if (flood)
                pendant.link().start();
            runFor(window / 10); // until the pace has settled
            const double value = measured(window);
            pendant.link().stop();
            return value;
        };
    };
    const QString idle = QStringLiteral("an idle pendant");
    bench.fewTrials(QStringLiteral("64 signals at 500 Hz: processor share"), idle,
                    QStringLiteral("%"), under(share, true), under(share, false));
    bench.fewTrials(QStringLiteral("64 signals at 500 Hz: longest gap of the event loop"), idle,
                    QStringLiteral("ms"), under(longestGap, true), under(longestGap, false));
}

int keyNamed(const tessa::PhysicalKeys &keys, const QString &label)
{
    for (int key = 0; key < keys.count(); ++key) {
        if (keys.button(key).label == label)
            return key;
    }
    qFatal("there is no such key");
}

int wireFeeds(const Journal &journal)
{
    const auto entries = journal.entries();
    return int(std::count_if(entries.begin(), entries.end(), [](const Journal::Entry &entry) {
        return entry.event == Journal::Event::WireFeeds;
    }));
}

void pressKey(Bench &bench, Pendant &pendant)
{
    m(QStringLiteral("welmo.device.enable"))->set(nullptr, QString(), true);
    const int feed = keyNamed(*pendant.keys(), QStringLiteral("Wire feed"));
    Meter sincePress;
    double time = 0;
    pendant.link().carriedOut = [&](const QString &command) {
        if (command == QLatin1String("arc_weld.wire_feed"))
            time = sincePress.read();
    };
    const auto ours = [&] {
        const int before = wireFeeds(pendant.link().journal());
        sincePress.start();
        pendant.keys()->press(feed);
        const double sinceThen = time;
        if (wireFeeds(pendant.link().journal()) != before + 1)
            qFatal("the key moves no wire");
        pendant.keys()->release(feed);
        QCoreApplication::processEvents();
        return sinceThen;
    };
    const auto floor = [&pendant] {
        const QString nothing = QStringLiteral("arc_weld.nothing");
        return cost([&] { pendant.service()->execCommand(nullptr, nothing); });
    };
    bench.row(QStringLiteral("press a key until the wire moves"),
              QStringLiteral("round trip of an empty command"), ours, floor);
    pendant.link().carriedOut = {};
}

} // namespace

void pendant(Bench &bench)
{
    Pendant pendant;
    pressKey(bench, pendant);
    floodPendant(bench, pendant);
}

} // namespace bench
