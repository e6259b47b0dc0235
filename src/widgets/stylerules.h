#pragma once

class QWidget;

namespace welmo {

/// Gives @p top, and what is and will be below it, the look of the package in the host's theme, and
/// numbers the point as their sign.
/// Cheapest before there are children.
void applyStyleRules(QWidget *top);

} // namespace welmo
