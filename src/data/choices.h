#pragma once

#include <QComboBox>
#include <QStringList>

#include "schema/choices.h"

/// Choices in a combo box: each item carries its stored code as item data. The shown text depends
/// on the language, so it is never compared or stored.
namespace welmo::choices {

/// Clears the combo and offers every choice, in the table's order.
void fill(QComboBox *combo, const schema::ChoiceTable &table);

/// Clears the combo and offers the choices with these source texts, in the list's order, without
/// signals; the user's choice is kept where it is still offered. Returns the texts that the table
/// does not know. An empty list offers every choice.
QStringList refill(QComboBox *combo, const schema::ChoiceTable &table,
                   const QStringList &sourceTexts);

/// Selects the item that stands for @p code; no item if none does.
void choose(QComboBox *combo, const char *code);

/// Whether the item at @p index stands for @p code; false without such an item.
bool isItem(const QComboBox *combo, int index, const char *code);

} // namespace welmo::choices
