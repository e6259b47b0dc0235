#pragma once

#include "instructions/moveforms.h"

/// Edits a circular welding move.
class WMoveCPropertyWidget : public MovePropertyForm
{
    Q_OBJECT
public:
    explicit WMoveCPropertyWidget(QWidget *parent);
};
