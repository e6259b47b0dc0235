#include "widgets/latepolish.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace welmo {

LatePolish::LatePolish(QWidget *part)
    : QObject(part)
    , m_part(part)
{
    const QList<QWidget *> within = part->findChildren<QWidget *>();
    for (QWidget *widget : QList<QWidget *>{part} + within) {
        widget->installEventFilter(this);
        m_widgets.append(widget);
    }
}

bool LatePolish::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShowToParent && watched == m_part)
        polish();
    if (event->type() != QEvent::Polish || m_part->isVisible())
        return false;
    m_late.append(static_cast<QWidget *>(watched));
    return true;
}

void LatePolish::polish()
{
    for (const QPointer<QWidget> &widget : qAsConst(m_widgets)) {
        if (widget)
            widget->removeEventFilter(this);
    }
    for (const QPointer<QWidget> &widget : qAsConst(m_late)) {
        QEvent polish(QEvent::Polish);
        if (widget)
            QCoreApplication::sendEvent(widget, &polish);
    }
    deleteLater();
}

} // namespace welmo
