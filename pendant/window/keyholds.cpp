#include "pendant/window/keyholds.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace welmo::pendant {

namespace {

constexpr int none = -1;

} // namespace

KeyHolds::KeyHolds(QObject *parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void KeyHolds::follow(tessa::PhysicalKeys *keys, QWidget *window)
{
    m_keys = keys;
    m_window = window;
    connect(keys, &tessa::PhysicalKeys::heldChanged, this, [this](int key, bool held) {
        if (!held)
            forget(key);
    });
    // The keys have other numbers now.
    connect(keys, &tessa::PhysicalKeys::setsChanged, this, &KeyHolds::letGo);
}

void KeyHolds::down(Source source, int key)
{
    // What is down has to come up first; not every repetition says what it is.
    if (!m_down.emplace(source, none).second || m_keys->isHeld(key))
        return;
    m_down[source] = key;
    m_keys->press(key);
    if (!m_keys->isHeld(key))
        forget(key);
}

void KeyHolds::up(Source source)
{
    const auto entry = m_down.extract(source);
    if (entry && entry.mapped() != none)
        m_keys->release(entry.mapped());
}

void KeyHolds::up(Kind kind)
{
    const auto held = m_down; // an action may change the sets, and with them this
    for (const auto &[source, key] : held) {
        if (source.first == kind)
            up(source);
    }
}

void KeyHolds::letGo()
{
    for (auto entry = m_down.begin(); entry != m_down.end();) {
        entry->second = none;
        // The keyboard may go on repeating, so that its keys have to come up first.
        entry = entry->first.first == Keyboard ? std::next(entry) : m_down.erase(entry);
    }
    m_keys->releaseAll();
}

void KeyHolds::forget(int key)
{
    for (auto &[source, held] : m_down) {
        if (held == key)
            held = none;
    }
}

// Keyboard and mouse are taken where they reach a window, before any field or popup.
bool KeyHolds::eventFilter(QObject *object, QEvent *event)
{
    if (!m_keys)
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return object->isWindowType() && onKeyPress(static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        return object->isWindowType() && onKeyRelease(static_cast<QKeyEvent *>(event));
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: // the first one after a release that went elsewhere
        if (object->isWindowType()
            && !static_cast<QMouseEvent *>(event)->buttons().testFlag(Qt::LeftButton))
            up(Mouse);
        return false;
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
    case QEvent::Hide:
        if (object == m_window)
            letGo();
        return false;
    default:
        return false;
    }
}

int KeyHolds::handleKey(const QKeyEvent *event) const
{
    const int key = event->key() - Qt::Key_F1;
    return key >= 0 && key < m_keys->count() ? key : none;
}

bool KeyHolds::onKeyPress(const QKeyEvent *event)
{
    const int key = handleKey(event);
    // Alt+F4 and its like mean something else, and a dialog has the keyboard to itself.
    if (key == none || event->modifiers() != Qt::NoModifier || QApplication::activeModalWidget())
        return false;
    if (!event->isAutoRepeat())
        down({Keyboard, event->key()}, key);
    return true;
}

bool KeyHolds::onKeyRelease(const QKeyEvent *event)
{
    const bool ours = m_down.count({Keyboard, event->key()}) > 0;
    if (ours && !event->isAutoRepeat())
        up({Keyboard, event->key()});
    return ours;
}

} // namespace welmo::pendant
