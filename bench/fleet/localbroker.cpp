#include "bench/fleet/localbroker.h"

#include <QDir>
#include <QFile>
#include <unistd.h>

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

double LocalBroker::processorSeconds() const
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(m_process.processId()));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    // The fields after the program's name; the 12th and 13th are the ticks in user and system mode.
    const QList<QByteArray> fields = file.readAll().split(')').last().simplified().split(' ');
    return double(fields.value(11).toLong() + fields.value(12).toLong())
        / double(sysconf(_SC_CLK_TCK));
}

} // namespace fleet
