#pragma once

#include <QScrollArea>

namespace welmo {

/// Holds a tall editor in an instruction's form: scrolls it up and down, never sideways.
class FormScroller : public QScrollArea
{
    Q_OBJECT
public:
    /// Takes ownership of the editor.
    explicit FormScroller(QWidget *editor);
};

} // namespace welmo
