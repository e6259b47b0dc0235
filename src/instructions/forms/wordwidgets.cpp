#include "instructions/forms/wordwidgets.h"

#include "tl/wordline.h"

void WordPropertyWidget::FillWith(const QString &line)
{
    report(welmo::tl::checkWordLine(instruction(), line));
}
