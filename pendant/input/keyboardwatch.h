#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace welmo::pendant {

/// What an X server does with the keyboard that Qt's key events do not show. Does nothing without
/// X.
///
/// It also asks the server to repeat a held key as presses only: otherwise the server sends a
/// release before each, and if Qt misses one, what a handle key moves stops and starts.
class KeyboardWatch : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    /// The QApplication must exist.
    explicit KeyboardWatch(QObject *parent = nullptr);

    bool nativeEventFilter(const QByteArray &type, void *message, long *result) override;

signals:
    /// A release may be lost from now on, or look like another key's: the focus was lost, another
    /// client grabbed the keyboard, or the keys' meanings changed.
    void disturbed();
    /// The key of that scan code is up. Qt may send no event for it: not for a key without a
    /// meaning, nor for one that another client received.
    void released(int scanCode);

private:
    bool repeatWithoutReleases();
    bool isDisturbance(const void *event) const;
    void tellReleased();

    bool m_releasesAreTrue = false;
    int m_firstXkbEvent = -1;
};

} // namespace welmo::pendant
