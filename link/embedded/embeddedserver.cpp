#include "link/embedded/embeddedserver.h"

#include "link/session/requests.h"

using tessa::LinkReply;
using tessa::LinkRequest;

namespace welmo::links {

EmbeddedServer::EmbeddedServer(const QString &dataFolder, controller::Faults &faults,
                               controller::Journal &journal, const controller::Clock &clock)
    : m_station(dataFolder, faults, journal, clock, this)
{
    m_station.setBeforeTick([this] { takeBeat(); });
    connect(&m_station, &ControllerRunner::problem, this, &EmbeddedServer::problem);
    connect(&m_station, &ControllerRunner::broken, this, [this] {
        const int session = m_session;
        endSession();
        emit broken(session);
    });
    connect(&m_station, &ControllerRunner::notified, this,
            [this](const QString &path, const QVariant &values) {
                if (m_watched.contains(path))
                    emit notified(m_session, path, values);
            });
}

EmbeddedServer::~EmbeddedServer() = default;

void EmbeddedServer::greet(int session)
{
    if (!m_station.isReachable() || !m_station.isReady())
        return;
    if (session != m_session) {
        endSession();
        m_session = session;
    }
    m_station.answer([this, session] { emit greeted(session); });
}

void EmbeddedServer::ask(int session, const std::shared_ptr<PendingCall> &exchange)
{
    if (exchange->isSettled())
        return;
    takeBeat();
    if (!m_station.isReachable() || session != m_session) {
        exchange->settle({LinkReply::Lost, {}});
        return;
    }
    m_station.answer([exchange, reply = carryOut(exchange->request)] { exchange->settle(reply); },
                     [exchange] {
                         exchange->settle({LinkReply::Lost, {}});
                     });
}

void EmbeddedServer::leave()
{
    endSession();
    m_station.forgetProblem();
}

void EmbeddedServer::endSession()
{
    m_session = 0;
    m_watched.clear();
    if (controller::Controller *controller = m_station.controller())
        controller->losePendant();
}

void EmbeddedServer::beat(int session, const QVector<int> &presses)
{
    const QMutexLocker lock(&m_beatMutex);
    if (m_beat && session < m_beat->session)
        return; // it must not hide what the later session said
    m_beat = Beat{session, m_station.now(), presses};
}

void EmbeddedServer::takeBeat()
{
    std::optional<Beat> beat;
    {
        const QMutexLocker lock(&m_beatMutex);
        beat.swap(m_beat);
    }
    controller::Controller *controller = m_station.controller();
    if (beat && controller && beat->session == m_session)
        controller->beat(beat->time, beat->presses);
}

LinkReply EmbeddedServer::carryOut(const LinkRequest &request)
{
    const Role role = m_role;
    controller::Request wanted = toController(request);
    wanted.author = {roleName(role), QStringLiteral("embedded"), timeOfDay()};
    // A request that nobody is named for is for the controller to refuse.
    if (needOf(wanted).role > role)
        return {controller::NotAllowed, {}};
    const controller::Reply reply = m_station.controller()->handle(wanted);
    if (request.kind == LinkRequest::Kind::Watch && reply.ok())
        m_watched.insert(request.path);
    return {reply.code, reply.value};
}

} // namespace welmo::links
