#include "vu/stylesheet.h"

#include <QWidget>

namespace {

bool isInForceAbove(const QWidget *widget, const QString &sheet)
{
    while ((widget = widget->parentWidget())) {
        if (widget->styleSheet() == sheet)
            return true;
    }
    return false;
}

} // namespace

void setRecursiveWidgetStyleSheet(QWidget *top, const QString &sheet)
{
    const QString own = top->styleSheet();
    if (own != sheet && !(own.isEmpty() && isInForceAbove(top, sheet)))
        top->setStyleSheet(sheet);
}
