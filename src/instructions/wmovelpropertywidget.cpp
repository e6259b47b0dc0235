#include "instructions/wmovelpropertywidget.h"

WMoveLPropertyWidget::WMoveLPropertyWidget(QWidget *parent)
    : MovePropertyForm(welmo::line::Instruction::WMoveL, parent)
{ }
