#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QEvent;
class QLineEdit;
class QMouseEvent;

namespace welmo::pendant {

class FieldPad;
class NumberEntry;

/// Opens keys on the screen for the field that is touched: a keypad for a number, a keyboard for a
/// text. They do not take the focus, and close when the field loses it, when something else is
/// touched, or at the first press of a physical key. A number is selected whole, and so is the text
/// of a field with the property "isName". Works in the whole application.
class FieldPads : public QObject
{
    Q_OBJECT
public:
    explicit FieldPads(NumberEntry *numbers, QObject *parent = nullptr);

    /// Pads in the window of @p area are placed within it.
    void follow(QWidget *area) { m_area = area; }

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void onReleased(QLineEdit *line, const QMouseEvent *event);
    void onPressed(const QWidget *widget);
    void open(QLineEdit *line);
    FieldPad *makeNumberPad(QWidget *box, QWidget *parent);
    FieldPad *makeTextPad(QLineEdit *line, QWidget *parent);
    void close();

    NumberEntry *m_numbers;
    QPointer<QWidget> m_area;
    QPointer<FieldPad> m_pad;
};

} // namespace welmo::pendant
