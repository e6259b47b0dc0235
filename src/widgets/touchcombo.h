#pragma once

class QComboBox;

namespace welmo {

/// Gives the combo's list rows that a finger can hit (its own delegate ignores the style rules' row
/// height) and lets it be narrower than its longest item. Calling it again changes nothing.
void makeTouchable(QComboBox *combo);

} // namespace welmo
