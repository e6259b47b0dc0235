#pragma once

class QComboBox;

namespace welmo {

/// Gives the combo's list rows that a finger can hit (its own delegate ignores the style rules' row
/// height) and lets it be narrower than its longest item. Calling it again changes nothing.
void makeTouchable(QComboBox *combo);

/// Chooses the first entry that has a text; nothing where none has.
void chooseFirstNamed(QComboBox *combo);

} // namespace welmo
