#pragma once

class QLabel;
class QWidget;

namespace welmo {

/// The line on top of @p form, whose layout goes from top to bottom, that says that what is shown
/// was not read. It belongs to the form, and is hidden at first.
QLabel *addNotReadHint(QWidget *form);
/// @p hint may be null.
void showWhetherRead(QLabel *hint, bool isRead);

} // namespace welmo
