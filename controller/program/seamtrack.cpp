#include "controller/program/seamtrack.h"

#include <algorithm>
#include <utility>

#include "controller/welding/weldprocess.h"

namespace welmo::controller {

namespace {

constexpr double worthWelding = 0.1; // mm

} // namespace

size_t SeamTrack::Gap::legAt(double place) const
{
    const auto leg = std::find_if(legs.begin(), legs.end(),
                                  [place](const Leg &each) { return place < each.end(); });
    return leg == legs.end() ? legs.size() - 1 : size_t(leg - legs.begin());
}

void SeamTrack::open(size_t line)
{
    m_isOpen = true;
    m_arcOn = line;
    m_burned = m_isMissing = false;
    m_burnedTo = 0;
    if (m_mends)
        return; // keeps the legs before the gap
    m_legs.clear();
    m_until.reset();
    m_gaps.erase(std::remove_if(m_gaps.begin(), m_gaps.end(),
                                [line](const Gap &gap) { return gap.arcOn == line; }),
                 m_gaps.end());
}

void SeamTrack::beginLeg(Leg leg)
{
    if (!m_isOpen)
        return;
    leg.start = legStart();
    m_legs.push_back(std::move(leg));
    m_way = 0;
}

void SeamTrack::follow(const WeldProcess &process)
{
    if (!m_isOpen || m_legs.empty())
        return;
    if (process.arc().isBurning()) {
        if (std::exchange(m_mends, false))
            m_gaps.erase(m_gaps.begin());
        if (std::exchange(m_isMissing, false))
            m_gaps.back().found = place();
        m_burned = true;
        m_burnedTo = place();
    } else if (process.isArcMissing() || process.trouble() != WeldProcess::Trouble::None) {
        addGap(process.weld().backDistance);
    }
}

void SeamTrack::addGap(double back)
{
    if (!m_burned || m_isMissing)
        return;
    m_isMissing = true;
    m_gaps.push_back({m_arcOn, m_legs, m_burnedTo, back, m_until, {}});
}

void SeamTrack::close(size_t arcOffLine)
{
    for (Gap &gap : m_gaps) {
        if (m_isOpen && !m_mends && gap.arcOn == m_arcOn && !gap.arcOff) {
            gap.arcOff = arcOffLine;
            gap.legs = m_legs;
        }
    }
    m_isOpen = m_isMissing = m_mends = false;
}

void SeamTrack::breakOff(const WeldProcess &process)
{
    if (m_isOpen && !m_legs.empty() && m_burnedTo < m_legs.back().end() - worthWelding)
        addGap(process.weld().backDistance);
    m_isOpen = m_isMissing = m_mends = false;
}

void SeamTrack::reopen()
{
    const Gap &gap = m_gaps.front();
    m_mends = true;
    m_until = gap.found;
    m_legs.assign(gap.legs.begin(), gap.legs.begin() + std::ptrdiff_t(gap.legAt(gap.from())));
}

} // namespace welmo::controller
