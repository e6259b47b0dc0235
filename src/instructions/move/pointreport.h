#pragma once

#include <QWidget>

#include <tessa/basecontentwidget.h>

namespace welmo {

/// Who reports for a panel: the instruction form that holds it, so that the program editor knows
/// which form refused a line; without a form, the panel itself.
inline QObject *reporterFor(QWidget *panel)
{
    QWidget *widget = panel;
    while (widget && !qobject_cast<tessa::BaseContentWidget *>(widget))
        widget = widget->parentWidget();
    return widget ? widget : panel;
}

} // namespace welmo
