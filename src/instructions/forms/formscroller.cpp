#include "instructions/forms/formscroller.h"

namespace welmo {

FormScroller::FormScroller(QWidget *editor)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setWidget(editor);
}

} // namespace welmo
