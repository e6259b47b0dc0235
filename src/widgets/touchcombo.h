#pragma once

#include <QStringList>

class QComboBox;

namespace welmo {

/// Gives the combo's list rows that a finger can hit (its own delegate ignores the style rules' row
/// height) and lets it be narrower than its longest item. Calling it again changes nothing.
void makeTouchable(QComboBox *combo);

/// Whether the combo offers just these; filling it again would close its open list.
bool offers(const QComboBox *combo, const QStringList &names);

/// Chooses the first entry that has a text; nothing where none has.
void chooseFirstNamed(QComboBox *combo);

} // namespace welmo
