#pragma once

#include <memory>
#include <optional>

#include "controller/robot/robotarm.h"

namespace welmo::controller {

/// The path of one move: the arm's position after so many millimetres of it.
class ProgramPath
{
public:
    virtual ~ProgramPath() = default;

    /// In millimetres of the tool's tip. A degree of turning counts as one, so that turning on the
    /// spot takes time too.
    double length() const { return m_length; }
    /// The joints after @p way mm, as near to @p present as the arm can; empty if it cannot get
    /// there. @p aside moves the tip off the path, to the left as seen along the tool, in mm.
    virtual std::optional<Joints> at(double way, const Joints &present, double aside = 0) const = 0;
    /// False if the arm cannot follow the whole path.
    bool isPossible(Joints present) const;

    // Frames are the tool's tip in the base frame; @p tool is the tip in the flange's frame.

    /// All joints turn evenly.
    static std::unique_ptr<ProgramPath> joint(const Joints &from, const Joints &to,
                                              const Frame &tool);
    /// A straight line, turning evenly.
    static std::unique_ptr<ProgramPath> line(const Frame &from, const Frame &to, const Frame &tool);
    /// A circle through @p by, turning evenly; a straight line if the three points are on one.
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
