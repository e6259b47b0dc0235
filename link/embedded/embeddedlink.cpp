#include "link/embedded/embeddedlink.h"

#include "link/embedded/embeddedserver.h"

namespace welmo::links {

namespace {

constexpr int retryMs = 500;

} // namespace

EmbeddedLink::EmbeddedLink(const Options &options, QObject *parent)
    : SessionLink(retryMs, parent)
    , m_server(new EmbeddedServer(options.dataFolder, m_faults, m_journal, options.clock))
{
    connect(m_server, &EmbeddedServer::greeted, this, [this](int session) { onGreeted(session); });
    connect(m_server, &EmbeddedServer::broken, this, [this](int session) { onBroken(session); });
    connect(
        m_server, &EmbeddedServer::notified, this,
        [this](int, const QString &path, const QVariant &values) { take(path, values); },
        Qt::DirectConnection);
    connect(m_server, &EmbeddedServer::problem, this, &ControllerLink::problem);
    m_server->setExample(options.example);
    connect(&m_thread, &QThread::finished, m_server, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("controller"));
    m_server->moveToThread(&m_thread);
    m_thread.start();
}

EmbeddedLink::~EmbeddedLink()
{
    m_thread.quit();
    m_thread.wait();
}

void EmbeddedLink::setRole(Role role)
{
    m_server->setRole(role);
}

void EmbeddedLink::greet(int session)
{
    post([server = m_server, session] { server->greet(session); });
}

void EmbeddedLink::ask(int session, const std::shared_ptr<PendingCall> &call, int)
{
    post([server = m_server, session, call] { server->ask(session, call); });
}

void EmbeddedLink::leave()
{
    post([server = m_server] { server->leave(); });
}

void EmbeddedLink::beatOn(int session, const QVector<int> &presses)
{
    m_server->beat(session, presses);
}

template<typename Work>
void EmbeddedLink::post(Work work)
{
    QMetaObject::invokeMethod(m_server, work, Qt::QueuedConnection);
}

} // namespace welmo::links
