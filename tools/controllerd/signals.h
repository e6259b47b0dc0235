#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace controllerd {

/// SIGTERM and SIGINT as a signal of the event loop. One in a process.
class Signals : public QObject
{
    Q_OBJECT
public:
    Signals();

signals:
    void endWanted();

private:
    static void handle(int);

    QSocketNotifier m_notifier;
};

} // namespace controllerd
