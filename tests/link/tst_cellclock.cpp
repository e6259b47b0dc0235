#include <QtTest>
#include <random>

#include "link/protocol/cellclock.h"
#include "link/protocol/protocol.h"
#include "support/datarows.h"

using namespace testsupport;

namespace {

constexpr int beatMs = 25;
constexpr qint64 hourMs = 3600000;
// Milliseconds. Of the promised 100, a beat counts for 80 and the cell looks every 10.
constexpr double mayBeAhead = 10;
// Beyond that the beats of a living pendant look too old.
constexpr double mayBeBehind = 30;
constexpr double settlesMs = 1000;

/// A clock that runs too fast by so many millionths, and may be set or stand still.
struct Drifting
{
    double ppm = 0;
    double shift = 0;
    qint64 at(double time) const { return qint64(time * (1 + ppm / 1e6) + shift); }
};

/// A day of a pendant and a cell on simulated clocks: beats go to the cell and its time comes back,
/// both sometimes late.
struct Day
{
    std::mt19937 random{7};
    Drifting pendant;
    Drifting cell{0, 5e6};
    welmo::links::CellClock clock;
    double disturbed = 0; // the last moment at which a clock jumped
    double farthestAhead = -1e9;
    double farthestBehind = -1e9;

    double way() { return 1 + random() % 10 + (random() % 50 == 0 ? 60 : 0); }
    void live(double time)
    {
        const double there = time + way();
        const double back = there + way();
        const qint64 claimed = clock.at(pendant.at(time));
        const qint64 said = cell.at(there);
        if (welmo::links::protocol::isCredible(claimed, said))
            farthestAhead = std::max(farthestAhead, double(claimed - cell.at(time)));
        if (time - disturbed > settlesMs)
            farthestBehind = std::max(farthestBehind, double(cell.at(time) - claimed));
        clock.hear(said, pendant.at(back), pendant.at(time));
    }
};

using Jump = std::function<void(Day &)>;

} // namespace

/// A pendant estimates the cell's clock so well that wire stands still 100 ms after the last beat,
/// whatever the clocks do.
class tst_CellClock : public QObject
{
    Q_OBJECT
private slots:
    void neverAhead_data()
    {
        addRows<double, Jump>(
            {{"pendant slow", -50.0, {}},
             {"pendant fast", 50.0, {}},
             {"pendant very slow", -500.0, {}},
             {"pendant very fast", 500.0, {}},
             {"pendant asleep", 500.0, [](Day &day) { day.pendant.shift -= 600e3; }},
             {"cell asleep", 500.0, [](Day &day) { day.cell.shift -= 600e3; }},
             {"cell set back", -500.0, [](Day &day) { day.cell.shift -= 5e3; }},
             {"cell set ahead", 500.0, [](Day &day) { day.cell.shift += 5e3; }}});
    }
    void neverAhead()
    {
        const auto &[name, ppm, jump] = currentRow<double, Jump>();
        Day day;
        day.pendant.ppm = ppm;
        day.clock.hear(day.cell.at(0), day.pendant.at(5));
        for (qint64 time = 5; time < 24 * hourMs; time += beatMs) {
            if (jump && day.disturbed == 0 && time > 3 * hourMs) {
                jump(day);
                day.disturbed = time;
            }
            day.live(time);
        }
        QVERIFY2(day.farthestAhead <= mayBeAhead, QByteArray::number(day.farthestAhead));
        QVERIFY2(day.farthestBehind <= mayBeBehind, QByteArray::number(day.farthestBehind));
    }
};

QTEST_GUILESS_MAIN(tst_CellClock)
#include "tst_cellclock.moc"
