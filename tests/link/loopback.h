#pragma once

#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>

/// Ports on this machine.
namespace loopback {

inline bool accepts(int port)
{
    QTcpSocket probe;
    probe.connectToHost(QHostAddress::LocalHost, quint16(port));
    return probe.waitForConnected();
}

/// A port that nobody listens on. It is below the ports that the system gives to clients: a client
/// that had this very port would connect to itself.
inline int freePort()
{
    for (;;) {
        const int port = QRandomGenerator::global()->bounded(20000, 32000);
        if (QTcpServer().listen(QHostAddress::LocalHost, quint16(port)))
            return port;
    }
}

} // namespace loopback
