#pragma once

#include <memory>
#include <optional>

#include "controller/robot/robotarm.h"

namespace welmo::controller {

/// The way of one move: where the arm is after so many millimetres of it.
class ProgramPath
{
public:
    virtual ~ProgramPath() = default;

    /// Millimetres of the tool's tip. A degree of turning counts as one, so that turning on the
    /// spot takes its time too.
    double length() const { return m_length; }
    /// The joints after @p way mm, as near to @p present as the arm can; nothing when it does not
    /// get there. @p aside moves the tip off the way, to the left as seen along the tool, in mm.
    virtual std::optional<Joints> at(double way, const Joints &present, double aside = 0) const = 0;
    /// False when the arm does not get along the way.
    bool isPossible(Joints present) const;

    // Frames are those of the tool's tip in the base frame; @p tool is the tip in the flange's.

    /// All joints turn evenly.
    static std::unique_ptr<ProgramPath> joint(const Joints &from, const Joints &to,
                                              const Frame &tool);
    /// Straight, turning evenly.
    static std::unique_ptr<ProgramPath> line(const Frame &from, const Frame &to, const Frame &tool);
    /// Along the circle through @p by, turning evenly; a line when the three are in one.
    static std::unique_ptr<ProgramPath> circle(const Frame &from, const Eigen::Vector3d &by,
                                               const Frame &to, const Frame &tool);

protected:
    explicit ProgramPath(double length)
        : m_length(length)
    { }
    double part(double way) const { return m_length > 0 ? way / m_length : 1; }

private:
    double m_length;
};

} // namespace welmo::controller
