#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <utility>

#include "tessa/physicalbutton.h"

class QKeyEvent;
class QWidget;

namespace welmo::pendant {

/// What holds which handle key down: the mouse, fingers, and the function keys of a keyboard, of
/// which F1 is the first handle key. Follows the whole application, so that no release is missed;
/// where one could be, it gives the release itself: when the window loses the operator's hand, a
/// modifier comes down, a dialog opens, or the key sets change. What was released that way takes a
/// fresh press, also when the pendant was started anew meanwhile. A press with a modifier is none.
class KeyHolds : public QObject
{
    Q_OBJECT
public:
    enum Kind { Mouse, Touch, Keyboard };
    /// A mouse button, a touch point, or the scan code of a key of the keyboard: what the key means
    /// may have changed when it comes up.
    using Source = std::pair<Kind, int>;

    explicit KeyHolds(QObject *parent = nullptr);

    /// From now on these keys are meant; they act while @p window is there and not behind a dialog.
    void follow(tessa::PhysicalKeys *keys, QWidget *window);

    /// @p source came down on the handle key @p key, or on none. Nothing when another one holds it
    /// already: who pressed it decides when it comes up.
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
    bool isMeant(const QKeyEvent *event) const;
    void forget(int key);

    QPointer<tessa::PhysicalKeys> m_keys;
    QPointer<QWidget> m_window;
    std::map<Source, int> m_down; // the handle key, or none when that came up by itself
};

} // namespace welmo::pendant
