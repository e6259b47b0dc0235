#include "bench/floodlink.h"

#include <chrono>

namespace bench {

namespace {

const QString prefix = QStringLiteral("bench.signal");

} // namespace

FloodLink::FloodLink()
{
    connect(&m_inner, &ControllerLink::upChanged, this, &ControllerLink::upChanged);
    connect(&m_inner, &ControllerLink::notified, this, &ControllerLink::notified);
    connect(&m_queue, &tessa::NotificationQueue::delivered, this, &ControllerLink::notified);
}

FloodLink::~FloodLink()
{
    stop();
}

QString FloodLink::node(int signal)
{
    return signal == 0 ? QStringLiteral("arc_weld.welder_state") : prefix + QString::number(signal);
}

void FloodLink::start()
{
    m_flooding = true;
    m_thread = std::thread([this] { flood(); });
}

void FloodLink::stop()
{
    m_flooding = false;
    if (m_thread.joinable())
        m_thread.join();
}

tessa::LinkReply FloodLink::call(const tessa::LinkRequest &request, int timeoutMs)
{
    if (request.path.startsWith(prefix))
        return {0, QVariantMap{{QStringLiteral("value"), 0.0}}};
    tessa::LinkReply reply = m_inner.call(request, timeoutMs);
    if (request.kind == tessa::LinkRequest::Kind::Command && carriedOut)
        carriedOut(request.path);
    return reply;
}

void FloodLink::flood()
{
    using Clock = std::chrono::steady_clock;
    QStringList nodes;
    for (int i = 0; i < signalCount; ++i)
        nodes.append(node(i));
    auto next = Clock::now();
    for (int round = 0; m_flooding; ++round) {
        const double value = round % 1000;
        for (int i = 1; i < signalCount; ++i)
            m_queue.push(nodes[i], QVariantMap{{QStringLiteral("value"), value + i}});
        m_queue.push(nodes[0],
                     QVariantMap{{QStringLiteral("current"), value},
                                 {QStringLiteral("voltage"), value / 10}});
        next += std::chrono::microseconds(1000000 / hertz);
        std::this_thread::sleep_until(next);
    }
}

} // namespace bench
