#include "bench/fleet/localbroker.h"

#include <QDir>
#include <QFile>

namespace fleet {

LocalBroker::LocalBroker(int port)
{
    m_address.host = QStringLiteral("127.0.0.1");
    m_address.port = port;
    const QString folder = m_folder.filePath(QStringLiteral("broker"));
    QProcess::execute(BROKER_SCRIPT, {"init", folder, QString::number(port)});
    openToAll();
    m_process.start(BROKER_SCRIPT, {"run", folder});
    m_process.waitForStarted();
}

LocalBroker::~LocalBroker()
{
    m_process.terminate();
    m_process.waitForFinished();
}

void LocalBroker::openToAll() const
{
    QFile file(m_folder.filePath(QStringLiteral("broker/mosquitto.conf")));
    if (!file.open(QIODevice::ReadWrite))
        return;
    QByteArray kept;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const bool account = line.startsWith("allow_anonymous") || line.startsWith("password_file")
            || line.startsWith("acl_file");
        if (!account)
            kept += line + '\n';
    }
    file.resize(0);
    file.seek(0);
    file.write(kept + "allow_anonymous true\n");
}

} // namespace fleet
