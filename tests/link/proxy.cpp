#include "proxy.h"

#include <QQueue>
#include <QTimer>
#include <memory>

Proxy::Proxy(int target)
{
    m_server->listen(QHostAddress::LocalHost);
    QObject::connect(m_server, &QTcpServer::newConnection, m_server, [this, target] {
        QTcpSocket *near = m_server->nextPendingConnection();
        auto *far = new QTcpSocket(near);
        join(near, far);
        join(far, near);
        far->connectToHost(QHostAddress::LocalHost, quint16(target));
        if (!far->waitForConnected())
            near->abort();
        for (QTcpSocket *end : {near, far})
            end->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    });
    m_server->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_server, &QObject::deleteLater);
    m_thread.start();
}

Proxy::~Proxy()
{
    m_thread.quit();
    m_thread.wait();
}

void Proxy::cut()
{
    QMetaObject::invokeMethod(m_server, [this] {
        const auto ends = m_server->findChildren<QTcpSocket *>();
        for (QTcpSocket *end : ends)
            end->abort();
    });
}

void Proxy::join(QTcpSocket *from, QTcpSocket *to)
{
    const auto waiting = std::make_shared<QQueue<QByteArray>>();
    QObject::connect(from, &QTcpSocket::readyRead, to, [=] {
        const QByteArray bytes = from->readAll();
        if (m_swallows)
            return;
        waiting->enqueue(bytes);
        QTimer::singleShot(m_delay.load(), Qt::PreciseTimer, to,
                           [=] { to->write(waiting->dequeue()); });
    });
    QObject::connect(from, &QTcpSocket::disconnected, to, [=] {
        if (!m_swallows) // a silent way does not tell of the end
            to->disconnectFromHost();
    });
}
