#pragma once

#include <QObject>
#include <map>
#include <utility>

class QKeyEvent;
class QWidget;

namespace tessa {
class PhysicalKeys;
}

namespace pendant {

/// What holds which handle key down: the mouse, fingers, and the function keys of a keyboard, of
/// which F1 is the first handle key. Follows the whole application, so that no release is missed;
/// where one could be, it gives the release itself: when the window loses the operator's hand, a
/// dialog opens, or the key sets change. What was released that way takes a fresh press.
class KeyHolds : public QObject
{
    Q_OBJECT
public:
    enum Kind { Mouse, Touch, Keyboard };
    /// A mouse button, a touch point or a key of the keyboard.
    using Source = std::pair<Kind, int>;

    /// Function keys act while @p window is not behind a dialog.
    KeyHolds(tessa::PhysicalKeys *keys, QWidget *window);

    /// @p source came down on the handle key @p key. Nothing when another one holds it already:
    /// who pressed it decides when it comes up.
    void down(Source source, int key);
    void up(Source source);
    /// Every source of that kind comes up.
    void up(Kind kind);
    /// Everything comes up.
    void letGo();

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    bool onKeyPress(const QKeyEvent *event);
    bool onKeyRelease(const QKeyEvent *event);
    int handleKey(const QKeyEvent *event) const;
    void forget(int key);

    tessa::PhysicalKeys *m_keys;
    QWidget *m_window;
    std::map<Source, int> m_down; // the handle key, or none when that came up by itself
};

} // namespace pendant
