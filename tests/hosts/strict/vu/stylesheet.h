#pragma once

class QString;
class QWidget;

void setRecursiveWidgetStyleSheet(QWidget *, const QString &);
