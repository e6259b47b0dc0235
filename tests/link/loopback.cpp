#include "loopback.h"

#include <QRandomGenerator>
#include <netinet/in.h>
#include <unistd.h>

namespace loopback {

namespace {

sockaddr_in addressOf(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int makeSocket()
{
    return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

} // namespace

int listen(int *port)
{
    const int listener = makeSocket();
    sockaddr_in address = addressOf(0);
    socklen_t size = sizeof address;
    bind(listener, reinterpret_cast<const sockaddr *>(&address), size);
    getsockname(listener, reinterpret_cast<sockaddr *>(&address), &size);
    ::listen(listener, 16);
    *port = ntohs(address.sin_port);
    return listener;
}

int connect(int port)
{
    const int made = makeSocket();
    const sockaddr_in address = addressOf(port);
    if (::connect(made, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0)
        return made;
    close(made);
    return -1;
}

bool accepts(int port)
{
    const int probe = connect(port);
    if (probe >= 0)
        close(probe);
    return probe >= 0;
}

// Below those that the system hands out: while nobody listens there, it may give such a one to who
// connects, who then finds himself at the other end.
int freePort()
{
    for (;;) {
        const int port = QRandomGenerator::global()->bounded(20000, 32000);
        const int probe = makeSocket();
        const sockaddr_in address = addressOf(port);
        const int bound = bind(probe, reinterpret_cast<const sockaddr *>(&address), sizeof address);
        close(probe);
        if (bound == 0)
            return port;
    }
}

} // namespace loopback
