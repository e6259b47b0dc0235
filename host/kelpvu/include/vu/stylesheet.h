#pragma once

class QString;
class QWidget;

/// Gives @p top and everything below it the style sheet. The sheet is set once, on the top widget,
/// from where Qt hands it down; a sheet that is already in force there is not set again, since
/// polishing a form anew costs more than building it.
void setRecursiveWidgetStyleSheet(QWidget *top, const QString &sheet);
