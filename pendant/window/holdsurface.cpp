#include "pendant/window/holdsurface.h"

#include <QMouseEvent>
#include <QTouchEvent>

#include "pendant/window/keyholds.h"

namespace welmo::pendant {

HoldSurface::HoldSurface(KeyHolds *holds, QWidget *parent)
    : QWidget(parent)
    , m_holds(holds)
{
    setAttribute(Qt::WA_StyledBackground);
    setAttribute(Qt::WA_AcceptTouchEvents);
}

void HoldSurface::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier)
        m_holds->down({KeyHolds::Mouse, event->button()}, keyAt(event->pos()));
}

bool HoldSurface::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        onTouch(static_cast<QTouchEvent *>(event));
        return true;
    case QEvent::TouchCancel:
        m_holds->up(KeyHolds::Touch);
        return true;
    default:
        return QWidget::event(event);
    }
}

void HoldSurface::onTouch(const QTouchEvent *event)
{
    for (const QTouchEvent::TouchPoint &point : event->touchPoints()) {
        const KeyHolds::Source finger{KeyHolds::Touch, point.id()};
        if (point.state() == Qt::TouchPointPressed && event->modifiers() == Qt::NoModifier)
            m_holds->down(finger, keyAt(point.pos().toPoint()));
        else if (point.state() == Qt::TouchPointReleased)
            m_holds->up(finger);
    }
}

} // namespace welmo::pendant
