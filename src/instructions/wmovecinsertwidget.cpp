#include "instructions/wmovecinsertwidget.h"

WMoveCInsertWidget::WMoveCInsertWidget(QWidget *parent)
    : MoveInsertForm(welmo::line::Instruction::WMoveC, parent)
{ }
