#pragma once

class QString;
class QWidget;

/// Gives @p top and its descendants the style sheet. It is set once, on the top widget, from which
/// Qt passes it down; a sheet that is already in force is not set again, since styling a form again
/// costs more than building it.
void setRecursiveWidgetStyleSheet(QWidget *top, const QString &sheet);
