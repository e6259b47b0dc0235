#include "vu/switchbutton.h"

#include <QPainter>

#include "vu/xtheme.h"

namespace {

QColor themed(const char *key)
{
    return vu::xtheme::current().color(QString::fromLatin1(key));
}

void paintFocus(QPainter &painter, const QRectF &box, qreal radius)
{
    painter.setPen(QPen(themed("focus"), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, radius, radius);
}

} // namespace

EnableButton::EnableButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::toggled, this, &EnableButton::enabled);
}

void EnableButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1.0 : 0.45);
    const QRectF track = QRectF(rect()).adjusted(8, 8, -8, -8);
    const qreal radius = track.height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? themed("ok") : themed("border"));
    painter.drawRoundedRect(track, radius, radius);
    const qreal side = track.height() - 6;
    const qreal left = isChecked() ? track.right() - side - 3 : track.left() + 3;
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(left, track.top() + 3, side, side));
    if (hasFocus())
        paintFocus(painter, track.adjusted(-4, -4, 4, 4), radius + 4);
}

TouchButton::TouchButton(QWidget *parent)
    : QAbstractButton(parent)
{
    connect(this, &QAbstractButton::pressed, this, [this] { emit touched(true); });
    connect(this, &QAbstractButton::released, this, [this] { emit touched(false); });
}

// The base class releases a button that is disabled, but not one that is hidden.
void TouchButton::hideEvent(QHideEvent *event)
{
    QAbstractButton::hideEvent(event);
    if (!isDown())
        return;
    setDown(false);
    emit touched(false);
}

void TouchButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1.0 : 0.45);
    const QRectF box = QRectF(rect()).adjusted(2, 2, -2, -2);
    painter.setPen(QPen(themed("border"), 1));
    painter.setBrush(isDown() ? themed("topic") : themed("btn_bkg"));
    painter.drawRoundedRect(box, 6, 6);
    painter.setPen(isDown() ? themed("white") : themed("text"));
    painter.drawText(box, Qt::AlignCenter, text());
    if (hasFocus())
        paintFocus(painter, box, 6);
}
