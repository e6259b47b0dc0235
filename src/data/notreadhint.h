#pragma once

class QLabel;
class QWidget;

namespace welmo {

/// Adds a hidden line above @p form, whose layout is vertical, that says that the shown values were
/// not read. The form owns it.
QLabel *addNotReadHint(QWidget *form);
/// @p hint may be null.
void showWhetherRead(QLabel *hint, bool isRead);

} // namespace welmo
