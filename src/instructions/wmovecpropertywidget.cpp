#include "instructions/wmovecpropertywidget.h"

WMoveCPropertyWidget::WMoveCPropertyWidget(QWidget *parent)
    : MovePropertyForm(welmo::line::Instruction::WMoveC, parent)
{ }
