#include "pendant/input/wheelguard.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QScrollBar>

namespace welmo::pendant {

namespace {

bool isField(const QObject *object)
{
    return qobject_cast<const QAbstractSpinBox *>(object) || qobject_cast<const QComboBox *>(object)
        || (qobject_cast<const QAbstractSlider *>(object)
            && !qobject_cast<const QScrollBar *>(object));
}

bool mayTurn(const QWidget *field)
{
    return field->hasFocus() && !qobject_cast<const QComboBox *>(field);
}

} // namespace

WheelGuard::WheelGuard(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject *object, QEvent *event)
{
    if ((event->type() != QEvent::Polish && event->type() != QEvent::Wheel) || !isField(object))
        return false;
    auto *field = static_cast<QWidget *>(object);
    if (event->type() == QEvent::Polish) {
        // Otherwise the first wheel step would give the field the focus.
        if (field->focusPolicy() == Qt::WheelFocus)
            field->setFocusPolicy(Qt::StrongFocus);
        return false;
    }
    if (mayTurn(field))
        return false;
    event->ignore(); // so that the scroll area gets it
    return true;
}

} // namespace welmo::pendant
