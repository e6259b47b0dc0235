#include "instructions/wmovelinsertwidget.h"

WMoveLInsertWidget::WMoveLInsertWidget(QWidget *parent)
    : MoveInsertForm(welmo::line::Instruction::WMoveL, parent)
{ }
