#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <atomic>

/// A way to a port of this machine that fails on demand; it has a thread of its own.
class Proxy
{
public:
    explicit Proxy(int target);
    ~Proxy();

    int port() const { return m_server->serverPort(); }
    /// Loses everything from now on, without ending a connection.
    void swallow(bool on) { m_swallows = on; }
    /// Delays everything by so many milliseconds.
    void delay(int milliseconds) { m_delay = milliseconds; }
    /// Breaks every connection.
    void cut();

private:
    void join(QTcpSocket *from, QTcpSocket *to);

    QTcpServer *const m_server = new QTcpServer;
    QThread m_thread;
    std::atomic<bool> m_swallows{false};
    std::atomic<int> m_delay{0};
};
