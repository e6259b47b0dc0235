#include "tools/controllerd/signals.h"

#include <csignal>
#include <sys/eventfd.h>

namespace controllerd {

namespace {

int wakeUp()
{
    static const int descriptor = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    return descriptor;
}

} // namespace

// All that a signal handler may do is to write to a descriptor.
void Signals::handle(int)
{
    eventfd_write(wakeUp(), 1);
}

Signals::Signals()
    : m_notifier(wakeUp(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        eventfd_t count = 0;
        eventfd_read(wakeUp(), &count);
        emit endWanted();
    });
    std::signal(SIGTERM, &Signals::handle);
    std::signal(SIGINT, &Signals::handle);
}

} // namespace controllerd
