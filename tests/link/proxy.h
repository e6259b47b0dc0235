#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <atomic>
#include <deque>
#include <list>
#include <thread>

/// A way to a port of this machine that fails on demand.
class Proxy
{
public:
    explicit Proxy(int target);
    ~Proxy();

    int port() const { return m_port; }
    /// Nothing passes any more, and nobody is told; what came meanwhile is lost for good.
    void swallow(bool on) { m_swallows = on; }
    /// Everything comes so much later, in its order.
    void delay(int milliseconds) { m_delay = milliseconds; }
    /// Breaks every connection.
    void cut() { m_cuts = true; }

private:
    struct Way
    {
        int from;
        int to;
        struct Piece
        {
            qint64 due;
            QByteArray bytes;
        };
        std::deque<Piece> waiting = {};
        bool dead = false;
    };

    void run();
    void accept();
    bool pass(Way &way, bool readable) const;
    bool read(Way &way) const;
    void closeAll();

    const int m_target;
    int m_port = 0;
    int m_listener;
    std::list<Way> m_ways; // two for each connection, there and back, side by side
    std::atomic<bool> m_swallows{false};
    std::atomic<int> m_delay{0};
    std::atomic<bool> m_cuts{false};
    std::atomic<bool> m_ends{false};
    QElapsedTimer m_clock;
    std::thread m_thread;
};
