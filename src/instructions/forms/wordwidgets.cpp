#include "instructions/forms/wordwidgets.h"

void WordPropertyWidget::FillWith(const QString &line)
{
    report(read(line).problems);
}
