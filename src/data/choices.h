#pragma once

#include <QComboBox>
#include <QStringList>

#include "schema/choices.h"

/// Choices in a combo box: an item carries its stored code as item data, so nothing ever compares
/// or stores a shown text, whatever the language.
namespace welmo::choices {

/// Clears the combo and offers every choice, in the table's order.
void fill(QComboBox *combo, const schema::ChoiceTable &table);

/// Clears the combo and offers the choices with these source texts, in the list's order; the user's
/// present choice is kept where it is still offered, and signals stay blocked. Texts that the table
/// does not know are left out and returned. An empty list restricts nothing.
QStringList refill(QComboBox *combo, const schema::ChoiceTable &table,
                   const QStringList &sourceTexts);

/// Chooses the item that stands for @p code; none when there is no such item.
void choose(QComboBox *combo, const char *code);

/// Whether the item at @p index stands for @p code; no item stands for nothing.
bool isItem(const QComboBox *combo, int index, const char *code);

} // namespace welmo::choices
