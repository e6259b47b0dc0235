#pragma once

#include "instructions/moveforms.h"

/// Edits a linear welding move.
class WMoveLPropertyWidget : public MovePropertyForm
{
    Q_OBJECT
public:
    explicit WMoveLPropertyWidget(QWidget *parent);
};
