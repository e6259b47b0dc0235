#pragma once

#include "instructions/forms/instructionform.h"

class MoveInsertWidget;
class MoveParamWidget;
class MovePropertyPointWidget;

namespace welmo {

/// Insert form of a welding move: one panel, whose text follows the instruction's word.
class MoveInsertForm : public InsertForm
{
    Q_OBJECT
public:
    MoveInsertForm(tl::Word word, QWidget *parent);
    QString ToString() override;

private:
    MoveInsertWidget *m_panel;
};

/// Property form of a welding move: the points above, the other arguments below.
class MovePropertyForm : public PropertyForm
{
    Q_OBJECT
public:
    MovePropertyForm(tl::Word word, QWidget *parent);
    void FillWith(const QString &text) override;
    QString ToString() override;

private:
    MovePropertyPointWidget *m_points;
    MoveParamWidget *m_parameters;
};

} // namespace welmo

// The forms by their instruction, as the catalogue names them.

class WMoveLInsertWidget : public welmo::MoveInsertForm
{
    Q_OBJECT
public:
    explicit WMoveLInsertWidget(QWidget *parent)
        : MoveInsertForm(welmo::tl::Word::WMoveL, parent)
    { }
};

class WMoveLPropertyWidget : public welmo::MovePropertyForm
{
    Q_OBJECT
public:
    explicit WMoveLPropertyWidget(QWidget *parent)
        : MovePropertyForm(welmo::tl::Word::WMoveL, parent)
    { }
};

class WMoveCInsertWidget : public welmo::MoveInsertForm
{
    Q_OBJECT
public:
    explicit WMoveCInsertWidget(QWidget *parent)
        : MoveInsertForm(welmo::tl::Word::WMoveC, parent)
    { }
};

class WMoveCPropertyWidget : public welmo::MovePropertyForm
{
    Q_OBJECT
public:
    explicit WMoveCPropertyWidget(QWidget *parent)
        : MovePropertyForm(welmo::tl::Word::WMoveC, parent)
    { }
};
