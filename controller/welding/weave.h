#pragma once

#include <QVariantMap>

namespace welmo::controller {

/// How far a weaving torch is off its way. Of a weave file's patterns the triangle and the sine are
/// moved; rounder ones sway like the sine. Dwells and angles are left out.
class Weave
{
public:
    explicit Weave(const QVariantMap &file);

    /// To the left, in mm, after @p way mm and @p ms milliseconds of a move.
    double aside(double way, int ms) const;

private:
    enum class Pattern { None, Triangle, Sine };

    Pattern m_pattern;
    bool m_byLength; // a weave takes so many mm, not so many ms
    double m_period; // mm or ms
    double m_left, m_right; // mm
};

} // namespace welmo::controller
