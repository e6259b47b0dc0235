#include "link/embedded/embeddedserver.h"

#include "link/session/requests.h"

using tessa::LinkReply;
using tessa::LinkRequest;

namespace welmo::links {

EmbeddedServer::EmbeddedServer(const QString &dataFolder, controller::Faults &faults,
                               controller::Journal &journal, const controller::Clock &clock)
    : m_runner(dataFolder, faults, journal, clock, this)
{
    m_runner.setBeforeTick([this] { takeBeat(); });
    connect(&m_runner, &ControllerRunner::problem, this, &EmbeddedServer::problem);
    connect(&m_runner, &ControllerRunner::broken, this, [this] {
        const int session = m_session;
        endSession();
        emit broken(session);
    });
    connect(&m_runner, &ControllerRunner::notified, this,
            [this](const QString &path, const QVariant &values) {
                if (m_watched.contains(path))
                    emit notified(m_session, path, values);
            });
}

EmbeddedServer::~EmbeddedServer() = default;

void EmbeddedServer::greet(int session)
{
    if (!m_runner.isReachable() || !m_runner.isReady())
        return;
    if (session != m_session) {
        endSession();
        m_session = session;
    }
    m_runner.answer([this, session] { emit greeted(session); });
}

void EmbeddedServer::ask(int session, const std::shared_ptr<PendingCall> &call)
{
    if (call->isAnswered())
        return;
    takeBeat();
    if (!m_runner.isReachable() || session != m_session) {
        call->answer({LinkReply::Lost, {}});
        return;
    }
    m_runner.answer([call, reply = carryOut(call->request)] { call->answer(reply); },
                    [call] {
                        call->answer({LinkReply::Lost, {}});
                    });
}

void EmbeddedServer::leave()
{
    endSession();
    m_runner.forgetProblem();
}

void EmbeddedServer::endSession()
{
    m_session = 0;
    m_watched.clear();
    if (controller::Controller *controller = m_runner.controller())
        controller->losePendant();
}

void EmbeddedServer::beat(int session, const QVector<int> &presses)
{
    const QMutexLocker lock(&m_beatMutex);
    if (m_beat && session < m_beat->session)
        return; // it must not replace a beat of the later session
    m_beat = Beat{session, m_runner.now(), presses};
}

void EmbeddedServer::takeBeat()
{
    std::optional<Beat> beat;
    {
        const QMutexLocker lock(&m_beatMutex);
        beat.swap(m_beat);
    }
    controller::Controller *controller = m_runner.controller();
    if (beat && controller && beat->session == m_session)
        controller->beat(beat->time, beat->presses);
}

LinkReply EmbeddedServer::carryOut(const LinkRequest &request)
{
    const Role role = m_role;
    controller::Request wanted = toController(request);
    wanted.author = {roleName(role), QStringLiteral("embedded"), timeOfDay(), isBound(role)};
    // The controller refuses a request without a user.
    if (needOf(wanted).role > role)
        return {controller::NotAllowed, {}};
    const controller::Reply reply = m_runner.controller()->handle(wanted);
    if (request.kind == LinkRequest::Kind::Watch && reply.ok())
        m_watched.insert(request.path);
    return {reply.code, reply.value};
}

} // namespace welmo::links
