#include "controller/welding/weave.h"

#include <cmath>

#include "controller/core/fields.h"

namespace welmo::controller {

Weave::Weave(const QVariantMap &file)
    : m_left(childAt(file, QStringLiteral("amplitude.left")).toDouble())
    , m_right(childAt(file, QStringLiteral("amplitude.right")).toDouble())
{
    const QString pattern = file.value(QStringLiteral("pattern")).toString();
    m_pattern = pattern == QLatin1String("triangular") ? Pattern::Triangle : Pattern::Sine;
    m_byLength = file.value(QStringLiteral("weaving_reference")) == QLatin1String("length");
    const double value = file.value(QStringLiteral("weave_length_frequency")).toDouble();
    m_period = m_byLength || value <= 0 ? value : 1000 / value;
    if (pattern == QLatin1String("no_weaving") || m_period <= 0)
        m_pattern = Pattern::None;
}

double Weave::aside(double way, int ms) const
{
    if (m_pattern == Pattern::None)
        return 0;
    const double turns = (m_byLength ? way : ms) / m_period;
    const double phase = turns - std::floor(turns);
    // Both patterns start in the middle and go to the left first.
    const double triangle = phase < 0.25 ? 4 * phase : phase < 0.75 ? 2 - 4 * phase : 4 * phase - 4;
    const double sway = m_pattern == Pattern::Triangle ? triangle : std::sin(2 * M_PI * phase);
    return sway * (sway > 0 ? m_left : m_right);
}

} // namespace welmo::controller
