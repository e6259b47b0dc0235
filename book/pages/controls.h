#pragma once

#include <QString>

class QComboBox;
class QDoubleSpinBox;
class QTableView;
class QWidget;

namespace welmo::book {

/// A table for fingers: it selects whole rows, one at a time, and a drag scrolls.
QTableView *makeTable(const QString &name, QWidget *parent);
/// Hides the columns that matter less while @p page is narrow, as beside an open side bar; to be
/// called whenever the page's size changes.
void fitColumns(const QWidget *page, QTableView *table, std::initializer_list<int> lesser);
/// A combo box that keeps its width whatever its items are.
QComboBox *makeCombo(const QString &name, QWidget *parent);
/// A box for a number, to be typed.
QDoubleSpinBox *makeNumber(const QString &name, QWidget *parent);

} // namespace welmo::book
