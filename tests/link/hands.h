#pragma once

#include <QElapsedTimer>
#include <atomic>
#include <mutex>

/// A clock that the test turns. The controller reads it again and again, so holding its gate stops
/// the thread that the controller works on.
struct Hands
{
    std::atomic<qint64> now{0};
    std::atomic<int> readings{0};
    std::mutex gate;

    qint64 read()
    {
        const std::lock_guard lock(gate);
        ++readings;
        return now;
    }
};
