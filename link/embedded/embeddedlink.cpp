#include "link/embedded/embeddedlink.h"

#include "link/embedded/embeddedserver.h"

namespace welmo::links {

namespace {

constexpr int retryMs = 500;

} // namespace

EmbeddedLink::EmbeddedLink(const Options &options, QObject *parent)
    : SessionLink(retryMs, parent)
    , m_farEnd(new EmbeddedServer(options.dataFolder, m_faults, m_journal, options.clock))
{
    connect(m_farEnd, &EmbeddedServer::greeted, this, [this](int session) { onGreeted(session); });
    connect(m_farEnd, &EmbeddedServer::broken, this, [this](int session) { onBroken(session); });
    connect(
        m_farEnd, &EmbeddedServer::notified, this,
        [this](int, const QString &path, const QVariant &values) { take(path, values); },
        Qt::DirectConnection);
    connect(m_farEnd, &EmbeddedServer::problem, this, &ControllerLink::problem);
    m_farEnd->setExample(options.example);
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

void EmbeddedLink::setRole(Role role)
{
    m_farEnd->setRole(role);
}

void EmbeddedLink::greet(int session)
{
    post([farEnd = m_farEnd, session] { farEnd->greet(session); });
}

void EmbeddedLink::ask(int session, const std::shared_ptr<PendingCall> &exchange, int)
{
    post([farEnd = m_farEnd, session, exchange] { farEnd->ask(session, exchange); });
}

void EmbeddedLink::leave()
{
    post([farEnd = m_farEnd] { farEnd->leave(); });
}

void EmbeddedLink::beatOn(int session, const QVector<int> &presses)
{
    m_farEnd->beat(session, presses);
}

template<typename Work>
void EmbeddedLink::post(Work work)
{
    QMetaObject::invokeMethod(m_farEnd, work, Qt::QueuedConnection);
}

} // namespace welmo::links
