#pragma once

/// Ports on this machine.
namespace loopback {

bool accepts(int port);
/// A port that nobody listens on.
int freePort();

} // namespace loopback
