#include "pendant/input/fieldpad.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

namespace welmo::pendant {

namespace {

constexpr int gap = 6;

} // namespace

FieldPad::FieldPad(QWidget *field, QWidget *parent)
    : QFrame(parent)
    , m_field(field)
    , m_column(new QVBoxLayout(this))
{
    setAttribute(Qt::WA_StyledBackground);
    m_column->setContentsMargins(10, 10, 10, 10);
    m_column->setSpacing(gap);
}

QPushButton *FieldPad::addKey(QGridLayout *grid, const QString &text, int row, int column,
                              int width)
{
    auto *key = new QPushButton(text, this);
    key->setFocusPolicy(Qt::NoFocus);
    key->setFixedHeight(keyHeight);
    key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    grid->addWidget(key, row, column, 1, width);
    return key;
}

void FieldPad::type(Qt::Key key, const QString &text)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        if (m_field)
            QCoreApplication::sendEvent(m_field, &event);
    }
}

void FieldPad::place(const QRect &area)
{
    adjustSize();
    const QRect field(m_field->mapTo(parentWidget(), QPoint()), m_field->size());
    const QPoint wanted[]{{field.left(), field.bottom() + gap},
                          {field.left(), field.top() - height() - gap},
                          {field.right() + gap, field.top()},
                          {field.left() - width() - gap, field.top()}};
    const auto inside = [&](QPoint corner) {
        corner.setX(qBound(area.left(), corner.x(), area.right() - gap - width()));
        corner.setY(qBound(area.top(), corner.y(), area.bottom() - gap - height()));
        return QRect(corner, size());
    };
    const auto free = std::find_if(std::begin(wanted), std::end(wanted), [&](const QPoint &corner) {
        return !inside(corner).intersects(field);
    });
    setGeometry(inside(free == std::end(wanted) ? wanted[0] : *free));
}

} // namespace welmo::pendant
