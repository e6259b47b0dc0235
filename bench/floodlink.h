#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include "link/embedded/embeddedlink.h"
#include "tessa/notificationqueue.h"

namespace bench {

/// A link to a controller in this process that has many additional signals, which can change far
/// faster than a screen can follow.
class FloodLink : public tessa::ControllerLink
{
    Q_OBJECT
public:
    static constexpr int signalCount = 64;
    static constexpr int hertz = 500;

    FloodLink();
    ~FloodLink() override;

    /// The node of a signal; the first one is shown by the welding monitor.
    static QString node(int signal);
    void start();
    void stop();

    /// Called when the controller has carried out a command, before the caller gets the answer.
    std::function<void(const QString &command)> carriedOut;

    tessa::LinkReply call(const tessa::LinkRequest &request, int timeoutMs) override;
    void open() override { m_inner.open(); }
    void close() override { m_inner.close(); }
    bool isUp() const override { return m_inner.isUp(); }
    void beat(const QVector<int> &presses) override { m_inner.beat(presses); }
    const welmo::controller::Journal &journal() const { return m_inner.journal(); }
    welmo::controller::Faults *faults() { return m_inner.faults(); }

private:
    void flood();

    welmo::links::EmbeddedLink m_inner{welmo::links::EmbeddedLink::Options{}};
    tessa::NotificationQueue m_queue;
    std::atomic<bool> m_flooding{false};
    std::thread m_thread;
};

} // namespace bench
