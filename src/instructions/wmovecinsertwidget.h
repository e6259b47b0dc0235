#pragma once

#include "instructions/moveforms.h"

/// Writes a new circular welding move.
class WMoveCInsertWidget : public MoveInsertForm
{
    Q_OBJECT
public:
    explicit WMoveCInsertWidget(QWidget *parent);
};
