#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace service {

/// SIGTERM, SIGINT and SIGHUP as signals of the event loop. Only one in a process.
class Signals : public QObject
{
    Q_OBJECT
public:
    Signals();

signals:
    void endWanted();
    void rereadWanted();

private:
    static void handle(int);

    QSocketNotifier m_notifier;
};

} // namespace service
