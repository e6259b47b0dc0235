#pragma once

#include "instructions/moveforms.h"

/// Writes a new linear welding move.
class WMoveLInsertWidget : public MoveInsertForm
{
    Q_OBJECT
public:
    explicit WMoveLInsertWidget(QWidget *parent);
};
