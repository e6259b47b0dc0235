#include "pendant/window/keyholds.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace welmo::pendant {

namespace {

constexpr int none = -1;

// The window system's number of the key; synthetic events may have none.
int placeOf(const QKeyEvent *event)
{
    const int code = int(event->nativeScanCode());
    return code > 0 ? code : event->key();
}

bool isModifier(int key)
{
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr
        || (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R);
}

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
    // The keys may have other numbers now.
    connect(keys, &tessa::PhysicalKeys::setsChanged, this, &KeyHolds::letGo);
}

void KeyHolds::down(Source source, int key)
{
    // A source that is already down is ignored: not every repeated event is marked as one.
    if (!m_down.emplace(source, none).second || key == none || m_keys->isHeld(key))
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
    // A copy, since an action may change the key sets and with them m_down.
    const auto held = m_down;
    for (const auto &[source, key] : held) {
        if (source.first == kind)
            up(source);
    }
}

void KeyHolds::letGo()
{
    if (!m_keys)
        return;
    for (auto entry = m_down.begin(); entry != m_down.end();) {
        entry->second = none;
        // Keyboard keys are kept: the keyboard may repeat them, and they must come up before a new
        // press counts.
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

// Keyboard and mouse events are handled at the window, before any field or popup.
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
    case QEvent::MouseMove: // the first move after a lost release
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

// A key with a modifier such as Alt+F4 means something else, and a dialog gets all keys itself.
bool KeyHolds::isMeant(const QKeyEvent *event) const
{
    const int key = event->key() - Qt::Key_F1;
    return key >= 0 && m_keys->isOnHandle(key) && event->modifiers() == Qt::NoModifier
        && !QApplication::activeModalWidget();
}

bool KeyHolds::onKeyPress(const QKeyEvent *event)
{
    // With a modifier, another client may get the release, or the key may change its meaning.
    if (isModifier(event->key()) || event->modifiers() != Qt::NoModifier)
        letGo();
    const bool meant = isMeant(event);
    if (!event->isAutoRepeat())
        down({Keyboard, placeOf(event)}, meant ? event->key() - Qt::Key_F1 : none);
    return meant;
}

bool KeyHolds::onKeyRelease(const QKeyEvent *event)
{
    const auto held = m_down.find({Keyboard, placeOf(event)});
    const bool ours = held != m_down.end() && held->second != none;
    if (held != m_down.end() && !event->isAutoRepeat())
        up(held->first);
    return ours;
}

} // namespace welmo::pendant
