#include "controller/core/storelock.h"

#include <QFile>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace welmo::controller {

StoreLock::~StoreLock()
{
    if (m_descriptor >= 0)
        // While the lock is held, so that another program's file is not removed.
        ::unlink(m_file.constData());
    close();
}

StoreLock::Outcome StoreLock::take(const QString &file)
{
    m_file = QFile::encodeName(file);
    do {
        close();
        m_descriptor = ::open(m_file.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
        if (m_descriptor < 0 || ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0)
            return failed();
    } while (!isStillThere()); // the last holder may remove the file between the two calls
    return Outcome::Taken;
}

StoreLock::Outcome StoreLock::failed()
{
    const int error = errno;
    close();
    m_errorText = QString::fromLocal8Bit(std::strerror(error));
    return error == EWOULDBLOCK ? Outcome::Held : Outcome::Failed;
}

bool StoreLock::isStillThere() const
{
    struct stat held = {};
    struct stat named = {};
    return ::fstat(m_descriptor, &held) == 0 && ::stat(m_file.constData(), &named) == 0
        && held.st_ino == named.st_ino && held.st_dev == named.st_dev;
}

void StoreLock::close()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

} // namespace welmo::controller
