#include "proxy.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include "loopback.h"

namespace {

constexpr int lookMs = 5;

} // namespace

Proxy::Proxy(int target)
    : m_target(target)
    , m_listener(loopback::listen(&m_port))
{
    m_clock.start();
    m_thread = std::thread([this] { run(); });
}

Proxy::~Proxy()
{
    m_ends = true;
    m_thread.join();
    closeAll();
    close(m_listener);
}

void Proxy::run()
{
    while (!m_ends) {
        std::vector<pollfd> polled{{m_listener, POLLIN, 0}};
        for (const Way &way : m_ways)
            polled.push_back({way.dead ? -1 : way.from, POLLIN, 0});
        poll(polled.data(), polled.size(), lookMs);
        bool good = !m_cuts.exchange(false);
        size_t index = 1;
        for (Way &way : m_ways)
            good = pass(way, polled[index++].revents != 0) && good;
        if (!good)
            closeAll();
        if (polled[0].revents != 0)
            accept();
    }
}

void Proxy::accept()
{
    const int near = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    const int far = loopback::connect(m_target);
    const int on = 1;
    for (const int end : {near, far})
        setsockopt(end, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    m_ways.push_back({near, far});
    m_ways.push_back({far, near});
}

/// False when the connection is over.
bool Proxy::pass(Way &way, bool readable) const
{
    if (readable && !read(way))
        return false;
    for (; !way.waiting.empty() && way.waiting.front().due <= m_clock.elapsed();
         way.waiting.pop_front()) {
        const QByteArray &bytes = way.waiting.front().bytes;
        if (send(way.to, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) < 0)
            return false;
    }
    return true;
}

bool Proxy::read(Way &way) const
{
    QByteArray bytes(65536, Qt::Uninitialized);
    const ssize_t count = ::read(way.from, bytes.data(), size_t(bytes.size()));
    way.dead = count <= 0;
    if (way.dead)
        return m_swallows; // then nobody is told of it
    bytes.resize(int(count));
    if (!m_swallows)
        way.waiting.push_back({m_clock.elapsed() + m_delay, bytes});
    return true;
}

void Proxy::closeAll()
{
    for (auto way = m_ways.begin(); way != m_ways.end(); std::advance(way, 2)) {
        close(way->from);
        close(way->to);
    }
    m_ways.clear();
}
