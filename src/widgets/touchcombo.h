#pragma once

#include <QStringList>

class QComboBox;

namespace welmo {

/// Gives the combo's list rows that are high enough for a finger (its own delegate ignores the
/// style rules' row height) and lets the combo be narrower than its longest item. Calling it again
/// changes nothing.
void makeTouchable(QComboBox *combo);

/// Whether the combo offers exactly these names; filling it again would close its open list.
bool offers(const QComboBox *combo, const QStringList &names);

/// Selects the first entry with a text, if there is one.
void chooseFirstNamed(QComboBox *combo);

} // namespace welmo
