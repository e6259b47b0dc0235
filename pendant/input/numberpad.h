#pragma once

#include "pendant/input/fieldpad.h"

class QAbstractSpinBox;
class QLabel;

namespace welmo::pendant {

/// A keypad for one number: its name, old value, range and unit, and what is typed.
class NumberPad : public FieldPad
{
    Q_OBJECT
public:
    NumberPad(QAbstractSpinBox *box, QWidget *parent);

    /// Shows why a number was refused.
    void complain(const QString &line);

private:
    QLabel *addLine(const QString &name, const QString &text);
    void addKeys();
    void showTyped();
    void onSign();

    QAbstractSpinBox *m_box;
    QLabel *m_typed;
    QLabel *m_facts;
};

} // namespace welmo::pendant
