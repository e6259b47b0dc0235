#include "bench/bench.h"

namespace bench {

namespace {

constexpr Effort thorough{2000, 200, 6};
constexpr Effort few{12, 12, 0};
constexpr Effort quickly{2, 2, 0};
constexpr Effort counted{3, 3, 0}; // counts hardly vary

} // namespace

Bench::Bench(bool quick, const QString &filter)
    : m_quick(quick)
    , m_filter(filter)
{ }

void Bench::row(const QString &what, const QString &floor, const Trial &ours,
                const Trial &floorTrial)
{
    if (count::isOn())
        run({what, floor, countUnit, {}}, ours, floorTrial, counted);
    else
        run({what, floor, QStringLiteral("µs"), {}}, ours, floorTrial, thorough);
}

void Bench::fewTrials(const QString &what, const QString &floor, const QString &unit,
                      const Trial &ours, const Trial &floorTrial)
{
    if (!leavesOut(what))
        run({what, floor, unit, {}}, ours, floorTrial, few);
}

bool Bench::leavesOut(const QString &what)
{
    if (count::isOn() && wants(what))
        m_leftOut.append(what);
    return count::isOn();
}

void Bench::run(const Row &row, const Trial &ours, const Trial &floor, const Effort &effort)
{
    if (!wants(row.what))
        return;
    Row measured = row;
    measured.figures = compare(ours, floor, m_quick ? quickly : effort);
    QTextStream(stderr) << row.what << ": " << measured.figures.trials << " trials\n";
    m_table.add(measured);
}

} // namespace bench
