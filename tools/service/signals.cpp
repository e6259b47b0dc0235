#include "tools/service/signals.h"

#include <csignal>
#include <sys/eventfd.h>

namespace service {

namespace {

int wakeUp()
{
    static const int descriptor = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    return descriptor;
}

volatile std::sig_atomic_t s_reread = 0;
volatile std::sig_atomic_t s_ended = 0;

} // namespace

// A signal handler may do no more than set a flag and write to a descriptor.
void Signals::handle(int number)
{
    (number == SIGHUP ? s_reread : s_ended) = 1;
    eventfd_write(wakeUp(), 1);
}

Signals::Signals()
    : m_notifier(wakeUp(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        eventfd_t count = 0;
        eventfd_read(wakeUp(), &count);
        if (s_reread) {
            s_reread = 0;
            emit rereadWanted();
        }
        if (s_ended)
            emit endWanted();
    });
    std::signal(SIGTERM, &Signals::handle);
    std::signal(SIGINT, &Signals::handle);
    std::signal(SIGHUP, &Signals::handle);
}

} // namespace service
