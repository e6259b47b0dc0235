#include "pendant/input/fieldpads.h"

#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include "pendant/input/numberentry.h"
#include "pendant/input/numberpad.h"
#include "pendant/input/textpad.h"

namespace welmo::pendant {

FieldPads::FieldPads(NumberEntry *numbers, QObject *parent)
    : QObject(parent)
    , m_numbers(numbers)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool FieldPads::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonRelease:
        if (auto *line = qobject_cast<QLineEdit *>(object))
            onReleased(line, static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonPress:
        if (m_pad && object->isWidgetType())
            onPressed(static_cast<QWidget *>(object));
        break;
    case QEvent::KeyPress: // what the pad types is sent to the field, not to a window
        if (object->isWindowType())
            close();
        break;
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::EnabledChange:
        if (m_pad && object == m_pad->field())
            close();
        break;
    default:
        break;
    }
    return false;
}

void FieldPads::onReleased(QLineEdit *line, const QMouseEvent *event)
{
    const bool touched = event->button() == Qt::LeftButton && line->rect().contains(event->pos());
    if (touched && line->isEnabled() && !line->isReadOnly())
        open(line);
}

void FieldPads::onPressed(const QWidget *widget)
{
    const auto isPartOf = [widget](const QWidget *whole) {
        return whole && (widget == whole || whole->isAncestorOf(widget));
    };
    if (!isPartOf(m_pad) && !isPartOf(m_pad->field()))
        close();
}

void FieldPads::open(QLineEdit *line)
{
    auto *box = qobject_cast<QAbstractSpinBox *>(line->parentWidget());
    if (box && !NumberEntry::isField(box))
        return;
    QWidget *field = box ? static_cast<QWidget *>(box) : line;
    if (m_pad && m_pad->field() == field)
        return;
    close();
    // Typing replaces a number, or a name, even if the field had the focus before.
    if (box)
        box->selectAll();
    else if (line->property("isName").toBool())
        line->selectAll();
    QWidget *window = line->window();
    const bool hasArea = m_area && m_area->window() == window;
    m_pad = box ? makeNumberPad(box, window) : makeTextPad(line, window);
    m_pad->place(hasArea ? QRect(m_area->mapTo(window, QPoint()), m_area->size()) : window->rect());
    m_pad->show();
    m_pad->raise();
}

FieldPad *FieldPads::makeNumberPad(QWidget *box, QWidget *parent)
{
    auto *pad = new NumberPad(static_cast<QAbstractSpinBox *>(box), parent);
    connect(m_numbers, &NumberEntry::refused, pad, &NumberPad::complain);
    connect(pad, &FieldPad::cancelled, this, [this] {
        m_numbers->takeBack();
        close();
    });
    connect(pad, &FieldPad::entered, this, [this, box] {
        if (!m_numbers->enter())
            return;
        close();
        // Sending an Enter key instead would also press a dialog's default button.
        QMetaObject::invokeMethod(box, "editingFinished");
    });
    return pad;
}

FieldPad *FieldPads::makeTextPad(QLineEdit *line, QWidget *parent)
{
    auto *pad = new TextPad(line, parent);
    connect(pad, &FieldPad::cancelled, this, [this, line, before = line->text()] {
        line->setText(before);
        close();
    });
    connect(pad, &FieldPad::entered, this, [this, line] {
        close();
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(line, &enter);
    });
    return pad;
}

void FieldPads::close()
{
    if (!m_pad)
        return;
    m_pad->hide();
    m_pad->deleteLater();
    m_pad.clear();
}

} // namespace welmo::pendant
