#pragma once

#include <QElapsedTimer>
#include <functional>

namespace welmo::controller {

/// Milliseconds since some fixed moment; they never go back. The controller measures all times with
/// it, so that a test can set the clock instead of waiting.
using Clock = std::function<qint64()>;

inline Clock steadyClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

} // namespace welmo::controller
