#pragma once

#include <QVariantMap>

namespace welmo::controller {

/// How far a weaving torch is beside its path. Of a weave file's patterns only triangle and sine
/// are moved; rounder ones move like the sine. Dwells and angles are left out.
class Weave
{
public:
    explicit Weave(const QVariantMap &file);

    /// The distance to the left, in mm, after @p way mm and @p ms milliseconds of a move.
    double aside(double way, int ms) const;

private:
    enum class Pattern { None, Triangle, Sine };

    Pattern m_pattern;
    bool m_byLength; // the period is mm of path, not ms
    double m_period; // mm or ms
    double m_left, m_right; // mm
};

} // namespace welmo::controller
