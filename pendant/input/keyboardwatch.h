#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace welmo::pendant {

/// What an X server does with the keyboard beside keys going down and up. Silent elsewhere.
///
/// It also asks the server to repeat a key that stays down as presses alone: otherwise it sends a
/// release before each, and what a handle key holds stutters whenever the toolkit misses one.
class KeyboardWatch : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    /// Wants the application to be there.
    explicit KeyboardWatch(QObject *parent = nullptr);

    bool nativeEventFilter(const QByteArray &type, void *message, long *result) override;

signals:
    /// From here on a release may go elsewhere, or look like another key's: the focus left, another
    /// client grabbed the keyboard, or the keys got other meanings.
    void disturbed();
    /// The key of that scan code is up, whether or not the toolkit makes an event of it: it makes
    /// none of a key without a meaning, and none of what another client got.
    void released(int scanCode);

private:
    bool repeatWithoutReleases();
    bool isDisturbance(const void *event) const;
    void tellReleased();

    bool m_releasesAreTrue = false;
    int m_firstXkbEvent = -1;
};

} // namespace welmo::pendant
