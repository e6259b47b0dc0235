#include "link/embeddedlink.h"

#include "link/exchange.h"
#include "link/farend.h"

using tessa::LinkReply;
using tessa::LinkRequest;

namespace links {

namespace {

constexpr int retryMs = 500;

} // namespace

EmbeddedLink::EmbeddedLink(const Options &options, QObject *parent)
    : ControllerLink(parent)
    , m_farEnd(new FarEnd(options.dataFolder, m_faults, m_journal, options.clock))
{
    m_retry.setInterval(retryMs);
    connect(&m_retry, &QTimer::timeout, this, &EmbeddedLink::greet);
    connect(m_farEnd, &FarEnd::greeted, this, &EmbeddedLink::onGreeted);
    connect(m_farEnd, &FarEnd::broken, this, &EmbeddedLink::onBroken);
    connect(
        m_farEnd, &FarEnd::notified, &m_queue,
        [this](int, const QString &path, const QVariant &values) { m_queue.push(path, values); },
        Qt::DirectConnection);
    connect(&m_queue, &tessa::NotificationQueue::delivered, this, &EmbeddedLink::onDelivered);
    connect(m_farEnd, &FarEnd::problem, this, &ControllerLink::problem);
    connect(&m_thread, &QThread::finished, m_farEnd, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("controller"));
    m_farEnd->moveToThread(&m_thread);
    m_thread.start();
}

EmbeddedLink::~EmbeddedLink()
{
    m_thread.quit();
    m_thread.wait();
}

LinkReply EmbeddedLink::call(const LinkRequest &request, int timeoutMs)
{
    if (!isUp())
        return {LinkReply::NotConnected, {}};
    const auto exchange = std::make_shared<Exchange>(request);
    post([farEnd = m_farEnd, session = m_session, exchange] { farEnd->ask(session, exchange); });
    LinkReply reply = exchange->wait(timeoutMs);
    if (!reply.fromController())
        goDown(State::Connecting);
    return reply;
}

void EmbeddedLink::open()
{
    if (m_state != State::Closed)
        return;
    m_state = State::Connecting;
    ++m_session;
    m_retry.start();
    greet();
}

void EmbeddedLink::close()
{
    goDown(State::Closed);
    post([farEnd = m_farEnd] { farEnd->leave(); });
}

void EmbeddedLink::beat(int press)
{
    if (isUp())
        m_farEnd->beat(m_session, press);
}

void EmbeddedLink::greet()
{
    post([farEnd = m_farEnd, session = m_session] { farEnd->greet(session); });
}

// Nobody's slots run in here: this is called in the middle of a call.
void EmbeddedLink::goDown(State next)
{
    const bool wasUp = isUp();
    m_state = next;
    ++m_session;
    if (next == State::Connecting)
        m_retry.start();
    else
        m_retry.stop();
    if (wasUp)
        QMetaObject::invokeMethod(
            this, [this] { emit upChanged(false); }, Qt::QueuedConnection);
}

void EmbeddedLink::onGreeted(int session)
{
    if (m_state != State::Connecting || session != m_session)
        return;
    m_state = State::Up;
    m_retry.stop();
    m_queue.clear(); // what an earlier session left behind
    emit upChanged(true);
}

void EmbeddedLink::onBroken(int session)
{
    if (isUp() && session == m_session)
        goDown(State::Connecting);
}

void EmbeddedLink::onDelivered(const QString &path, const QVariant &values)
{
    if (isUp())
        emit notified(path, values);
}

template<typename Work>
void EmbeddedLink::post(Work work)
{
    QMetaObject::invokeMethod(m_farEnd, work, Qt::QueuedConnection);
}

} // namespace links
