#pragma once

#include <QString>
#include <QStringList>

/// The controller's digital inputs, as the option pages offer them.
namespace welmo::inputs {

/// The text for "none", translated. It is also what the files store: the one place where a stored
/// value follows the language, as the controllers in the field expect it.
QString noSignal();

/// The text for "none" in every language: another pendant may have stored any of them.
QStringList noSignalTexts();

/// noSignal() first, then the free digital inputs in board and pin order.
QStringList getDIRange();

/// The input-name order: a name of less than two parts ("No signal") comes first, others by board
/// number (the first part behind its two letters), then by pin number ("DI1_3": board 1, pin 3).
/// Not a strict weak order for two short names; sort through sortInputs().
bool ioCompare(const QString &a, const QString &b);

/// Sorts by ioCompare(); names that it puts before each other keep their order.
void sortInputs(QStringList &names);

} // namespace welmo::inputs
