#include "support/xserver.h"

#include <csignal>
#include <sys/prctl.h>

namespace testsupport {

void XServer::Process::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

XServer::XServer()
{
    m_process.start(
        "Xvfb", {"-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"});
    m_up = m_process.waitForReadyRead();
    const QByteArray display = ':' + m_process.readAllStandardOutput().trimmed();
    qputenv("DISPLAY", display);
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
}

XServer::~XServer()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool XServer::run(const QString &program, const QStringList &arguments)
{
    return QProcess::execute(program, arguments) == 0;
}

} // namespace testsupport
