#pragma once

class QWidget;

namespace welmo {

/// Gives @p top and all its descendants, also later ones, the package's look in the host's theme,
/// with a point as the decimal sign. Cheapest while @p top has no children.
void applyStyleRules(QWidget *top);

} // namespace welmo
