#include "instructions/wordwidgets.h"

#include "instructions/line/wordline.h"

void WordPropertyWidget::FillWith(const QString &line)
{
    report(welmo::line::checkWordLine(instruction(), line));
}
