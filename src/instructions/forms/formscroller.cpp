#include "instructions/forms/formscroller.h"

FormScroller::FormScroller(QWidget *editor)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setWidget(editor);
}
