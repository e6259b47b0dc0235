#pragma once

class QWidget;

namespace welmo {

/// Gives @p top, and what is and will be below it, the look of the package in the host's theme.
/// Cheapest before there are children.
void applyStyleRules(QWidget *top);

} // namespace welmo
