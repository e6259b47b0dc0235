#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <atomic>

/// A way to a port of this machine that fails on demand, at work on a thread of its own.
class Proxy
{
public:
    explicit Proxy(int target);
    ~Proxy();

    int port() const { return m_server->serverPort(); }
    /// Nothing passes any more, and nobody is told; what came meanwhile is lost for good.
    void swallow(bool on) { m_swallows = on; }
    /// Everything comes so much later, in its order.
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
