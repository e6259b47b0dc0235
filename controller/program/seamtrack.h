#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "controller/program/programpath.h"
#include "controller/welding/weave.h"

namespace welmo::controller {

class WeldProcess;

/// Follows the torch along the seams of a run and records where a seam lacks its arc, so that it
/// can be welded again there. Lines count from 0, places along a seam in mm from its start.
class SeamTrack
{
public:
    /// One move of a seam.
    struct Leg
    {
        size_t line;
        std::shared_ptr<const ProgramPath> path;
        Frame tool; ///< the tool's tip in the flange's frame
        std::optional<Weave> weave;
        double start; ///< where the leg starts along the seam

        double end() const { return start + path->length(); }
    };
    /// A part of a seam without an arc.
    struct Gap
    {
        size_t arcOn; ///< the line
        std::vector<Leg> legs; ///< as far as the torch's path is known
        double lost; ///< where the arc was lost
        double back; ///< distance before it at which the arc is struck again
        std::optional<double> found; ///< where the arc came back, if it did
        std::optional<size_t> arcOff; ///< its line; empty if the run ended within the seam

        double from() const { return std::max(0.0, lost - back); }
        /// The leg that @p place lies on, from 0.
        size_t legAt(double place) const;
    };

    /// A seam with a real arc begins; its earlier gaps are forgotten.
    void open(size_t line);
    void beginLeg(Leg leg);
    /// The torch's place along the present leg.
    void setWay(double way) { m_way = way; }
    /// Records one millisecond of the weld.
    void follow(const WeldProcess &process);
    void close(size_t arcOffLine);
    /// The run ended, perhaps within a seam.
    void breakOff(const WeldProcess &process);
    /// The first gap is about to be welded, from its start; the legs before it are kept.
    void reopen();
    void clear() { *this = {}; }

    /// The first gap; null if there is none.
    const Gap *gap() const { return m_gaps.empty() ? nullptr : &m_gaps.front(); }
    /// Where the present leg starts along the seam.
    double legStart() const { return m_legs.empty() ? 0 : m_legs.back().end(); }

private:
    double place() const { return m_legs.empty() ? 0 : m_legs.back().start + m_way; }
    void addGap(double back);

    bool m_isOpen = false;
    bool m_burned = false; // an arc has burned in the open seam
    bool m_isMissing = false; // the arc is still missing: the last gap goes on
    bool m_mends = false; // the first gap is being welded
    size_t m_arcOn = 0;
    std::vector<Leg> m_legs;
    double m_way = 0;
    double m_burnedTo = 0;
    std::optional<double> m_until; // the end of the gap that is being welded
    std::vector<Gap> m_gaps;
};

} // namespace welmo::controller
