#pragma once

#include "instructions/instructionform.h"

class MoveInsertWidget;
class MoveParamWidget;
class MovePropertyPointWidget;

/// Insert form of a welding move: one panel, whose text follows the instruction's word.
class MoveInsertForm : public InsertForm
{
    Q_OBJECT
public:
    MoveInsertForm(welmo::line::Instruction instruction, QWidget *parent);
    QString ToString() override;

private:
    MoveInsertWidget *m_panel;
};

/// Property form of a welding move: the points above, the other arguments below.
class MovePropertyForm : public PropertyForm
{
    Q_OBJECT
public:
    MovePropertyForm(welmo::line::Instruction instruction, QWidget *parent);
    void FillWith(const QString &text) override;
    QString ToString() override;

private:
    MovePropertyPointWidget *m_points;
    MoveParamWidget *m_parameters;
};
