#include "vu/stylesheet.h"

#include <QWidget>

void setRecursiveWidgetStyleSheet(QWidget *top, const QString &sheet)
{
    for (const QWidget *widget = top; widget; widget = widget->parentWidget()) {
        if (widget->styleSheet() == sheet)
            return;
    }
    top->setStyleSheet(sheet);
}
