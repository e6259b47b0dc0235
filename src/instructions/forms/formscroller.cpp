#include "instructions/forms/formscroller.h"

namespace welmo {

FormScroller::FormScroller(QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
}

void FormScroller::showEvent(QShowEvent *event)
{
    if (!widget())
        setWidget(viewport()->findChild<QWidget *>({}, Qt::FindDirectChildrenOnly));
    QScrollArea::showEvent(event);
}

} // namespace welmo
