#include "pendant/window/keycolumn.h"

#include <QMouseEvent>
#include <QTouchEvent>
#include <QVBoxLayout>

#include "pendant/window/handlekey.h"
#include "pendant/window/keyholds.h"
#include "tessa/physicalbutton.h"

namespace welmo::pendant {

namespace {

constexpr int columnWidth = 100;
constexpr int keySpacing = 2;
constexpr int groupSpacing = 14;
constexpr int keyStretch = 100; // beside the end's: keys take all the height that they can use

} // namespace

KeyColumn::KeyColumn(tessa::PhysicalKeys *keys, KeyHolds *holds, QWidget *parent)
    : QWidget(parent)
    , m_keys(keys)
    , m_holds(holds)
    , m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("pndKeys"));
    setAttribute(Qt::WA_StyledBackground);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setFixedWidth(columnWidth);
    m_layout->setContentsMargins(6, 6, 6, 6);
    m_layout->setSpacing(keySpacing);
    connect(keys, &tessa::PhysicalKeys::setsChanged, this, &KeyColumn::rebuild);
    connect(keys, &tessa::PhysicalKeys::enabledChanged, this, &KeyColumn::refresh);
    connect(keys, &tessa::PhysicalKeys::heldChanged, this, &KeyColumn::refresh);
    rebuild();
}

void KeyColumn::rebuild()
{
    m_faces.clear();
    while (QLayoutItem *item = m_layout->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (int key = 0; key < m_keys->count(); ++key) {
        if (key > 0 && m_keys->startsGroup(key))
            m_layout->addSpacing(groupSpacing);
        m_faces.append(
            new HandleKey(m_keys->button(key), QStringLiteral("F%1").arg(key + 1), this));
        m_layout->addWidget(m_faces.last(), keyStretch);
    }
    m_layout->addStretch(1);
    setVisible(!m_faces.isEmpty());
    refresh();
}

void KeyColumn::refresh()
{
    for (int key = 0; key < m_faces.size(); ++key)
        m_faces.at(key)->show(m_keys->isEnabled(key), m_keys->isHeld(key));
}

int KeyColumn::keyAt(const QPoint &point) const
{
    int key = m_faces.size() - 1;
    while (key >= 0 && !m_faces.at(key)->geometry().contains(point))
        --key;
    return key;
}

void KeyColumn::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier)
        m_holds->down({KeyHolds::Mouse, event->button()}, keyAt(event->pos()));
}

bool KeyColumn::event(QEvent *event)
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

void KeyColumn::onTouch(const QTouchEvent *event)
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
