#pragma once

#include <QElapsedTimer>
#include <functional>

namespace welmo::controller {

/// Milliseconds since some fixed moment; they never go back. Everything that takes time in the
/// controller is measured with it, so that a test turns the hands instead of waiting.
using Clock = std::function<qint64()>;

inline Clock steadyClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

} // namespace welmo::controller
