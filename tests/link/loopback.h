#pragma once

/// Plain sockets on this machine.
namespace loopback {

/// A socket that listens on a port of its own, which goes to @p port.
int listen(int *port);
/// A connected socket, or -1.
int connect(int port);
bool accepts(int port);
/// A port that nobody listens on.
int freePort();

} // namespace loopback
