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

/// A port that nobody listens on. Below those that the system hands out: while nobody listens
/// there, it may give such a one to who connects, who then finds himself at the other end.
inline int freePort()
{
    for (;;) {
        const int port = QRandomGenerator::global()->bounded(20000, 32000);
        if (QTcpServer().listen(QHostAddress::LocalHost, quint16(port)))
            return port;
    }
}

} // namespace loopback
