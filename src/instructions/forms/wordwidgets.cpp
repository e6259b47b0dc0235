#include "instructions/forms/wordwidgets.h"

namespace welmo {

void WordPropertyWidget::FillWith(const QString &line)
{
    report(read(line).problems);
}

} // namespace welmo
