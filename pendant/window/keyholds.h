#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <utility>

#include "tessa/physicalbutton.h"

class QKeyEvent;
class QWidget;

namespace welmo::pendant {

/// Which mouse button, finger or function key holds which handle key; F1 is the first handle key.
/// It filters the events of the whole application, so that no release is missed. Where one could
/// be, it releases the key itself: when the window loses focus, a modifier is pressed, a dialog
/// opens, or the key sets change. After that only a new press counts, also if the pendant was
/// restarted meanwhile. Presses with a modifier are ignored.
class KeyHolds : public QObject
{
    Q_OBJECT
public:
    enum Kind { Mouse, Touch, Keyboard };
    /// A mouse button, a touch point, or a keyboard key by its scan code, since a key's meaning may
    /// change before its release.
    using Source = std::pair<Kind, int>;

    explicit KeyHolds(QObject *parent = nullptr);

    /// Sets the keys to act on; they act while @p window is visible and not behind a dialog.
    void follow(tessa::PhysicalKeys *keys, QWidget *window);

    /// @p source was pressed on the handle key @p key, or on none. Ignored if another source holds
    /// the key: the one that pressed it decides when it comes up.
    void down(Source source, int key);
    void up(Source source);
    /// Releases every source of that kind.
    void up(Kind kind);
    /// Releases everything.
    void letGo();

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    bool onKeyPress(const QKeyEvent *event);
    bool onKeyRelease(const QKeyEvent *event);
    bool isMeant(const QKeyEvent *event) const;
    void forget(int key);

    QPointer<tessa::PhysicalKeys> m_keys;
    QPointer<QWidget> m_window;
    std::map<Source, int> m_down; // the handle key, or none if it has been released already
};

} // namespace welmo::pendant
