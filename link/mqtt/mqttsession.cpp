#include "link/mqtt/mqttsession.h"

#include <QMutexLocker>
#include <QRegularExpression>
#include <QSysInfo>
#include <QUuid>
#include <algorithm>

#include "link/session/requests.h"

using tessa::LinkReply;
using tessa::LinkRequest;
using welmo::controller::Reply;

namespace welmo::links {

namespace {

constexpr size_t rememberedBeats = 64; // of the last second and a half
constexpr int unansweredMs = 3000; // a cell that lost its broker is at the next one sooner

const QString nobody = QStringLiteral("nobody"); // a broker that asks for no user

QString revisionKey(const LinkRequest &request)
{
    return request.path + QLatin1Char('/') + request.key;
}

bool hasRevision(const LinkRequest &request)
{
    return !request.key.isEmpty()
        && (request.kind == LinkRequest::Kind::Get || request.kind == LinkRequest::Kind::Set);
}

// The machine, so that an operator can tell pendants of the same user apart, and a number.
QString clientName()
{
    QString machine = QSysInfo::machineHostName().left(31); // the number fits beside it
    machine.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9._-]")), QStringLiteral("-"));
    return machine + QLatin1Char('-') + QUuid::createUuid().toString(QUuid::Id128);
}

} // namespace

MqttSession::MqttSession(const BrokerAddress &address, const QString &cell, controller::Clock clock)
    : m_topics(cell)
    , m_cell(cell)
    , m_user(address.user.isEmpty() ? nobody : address.user)
    , m_client(clientName())
    , m_clock(std::move(clock))
    , m_brokers(address.count())
{
    m_silence.start();
    m_end = protocol::toMessage(protocol::Beat{m_client, 0, 0, {}, true});
    m_end.topic = m_topics.beat(m_user);
    // Not the name in the topics: a client that knew the id could disconnect this pendant.
    const QString id = QStringLiteral("pendant-") + QUuid::createUuid().toString(QUuid::Id128);
    const MqttClient::Options how{address, id, m_end};
    m_mqtt = std::make_unique<MqttClient>(
        how,
        MqttClient::Handlers{
            [this] { onOnline(); },
            [this](const QString &reason, bool all) { onOffline(all ? reason : QString()); },
            [this](const MqttMessage &message) { onMessage(message); }, [this] { pulse(); }});
}

MqttSession::~MqttSession()
{
    leave();
}

void MqttSession::greet(int session)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_wanted != session) {
            m_wanted = session;
            breakOff();
        }
        if (m_session != session)
            sendGreeting();
    }
    m_mqtt->start();
}

void MqttSession::sendGreeting()
{
    protocol::Request hello;
    hello.hello = true;
    hello.content.key = QString::number(m_wanted); // asking again gives the same session
    m_watched.clear();
    if (send(hello, {nullptr, m_wanted}) && m_asked == 0)
        m_asked = m_silence.elapsed();
}

bool MqttSession::send(protocol::Request request, const Pending &pending)
{
    request.sequence = ++m_sequence;
    MqttMessage message = protocol::toMessage(request);
    message.topic = m_topics.request(m_user);
    message.responseTopic = m_topics.reply(m_user, m_client);
    message.correlation = QByteArray::number(m_sequence);
    m_pending.insert(message.correlation, pending);
    if (m_mqtt->publish(message))
        return true;
    m_pending.remove(message.correlation);
    return false;
}

void MqttSession::ask(int session, const std::shared_ptr<PendingCall> &call, int timeoutMs)
{
    const QMutexLocker lock(&m_mutex);
    const LinkRequest &asked = call->request;
    protocol::Request request;
    request.session = m_wireSession;
    // Earlier than the call's limit, since the answer takes time as well.
    request.deadline = m_cellClock.at(m_clock()) + timeoutMs - timeoutMs / 8;
    request.content = toController(asked);
    if (asked.kind == LinkRequest::Kind::Set && hasRevision(asked))
        request.content.revision = m_revisions.value(revisionKey(asked));
    if (asked.kind == LinkRequest::Kind::Watch)
        watch(asked.path);
    if (session != m_session || !send(request, {call, session}))
        call->answer({LinkReply::Lost, {}});
}

// Before the request, so that no value between its answer and the subscription is missed.
void MqttSession::watch(const QString &path)
{
    m_mqtt->subscribe(m_topics.value(path), 0);
    m_mqtt->subscribe(m_topics.value(path, QStringLiteral("+")), 0);
}

void MqttSession::beat(int session, const QVector<int> &presses)
{
    const QMutexLocker lock(&m_mutex);
    if (session != m_session)
        return;
    const qint64 now = m_clock();
    protocol::Beat beat{m_wireSession, ++m_beats, m_cellClock.at(now), presses};
    m_sent.emplace_back(beat.sequence, now);
    if (m_sent.size() > rememberedBeats)
        m_sent.pop_front();
    MqttMessage message = protocol::toMessage(beat);
    message.topic = m_topics.beat(m_user);
    m_mqtt->publish(message);
}

void MqttSession::leave()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_wanted = 0;
        m_complaint.clear();
    }
    m_mqtt->stop(m_end);
    const QMutexLocker lock(&m_mutex);
    breakOff();
}

void MqttSession::onOnline()
{
    m_mqtt->subscribe(m_topics.reply(m_user, m_client), 1);
    m_mqtt->subscribe(m_topics.alive(), 0);
    m_mqtt->subscribe(m_topics.status(), 1);
    const QMutexLocker lock(&m_mutex);
    if (m_wanted != 0)
        sendGreeting();
}

void MqttSession::onOffline(const QString &reason)
{
    const QMutexLocker lock(&m_mutex);
    m_asked = 0;
    if (m_session == 0 && !reason.isEmpty())
        complain(reason);
    breakOff();
}

void MqttSession::onMessage(const MqttMessage &message)
{
    const QMutexLocker lock(&m_mutex);
    if (message.topic == m_topics.alive()) {
        if (const auto alive = protocol::toAlive(message); alive && !message.retained)
            onAlive(*alive);
    } else if (message.topic == m_topics.status()) {
        onStatus(protocol::toStatus(message));
    } else if (message.topic == m_topics.reply(m_user, m_client)) {
        onReply(message);
    } else if (!message.retained) {
        onValue(message);
    }
}

void MqttSession::onStatus(const std::optional<protocol::Status> &status)
{
    if (status && !status->present)
        breakOff();
    else if (status && m_session == 0 && m_wanted != 0)
        sendGreeting();
}

void MqttSession::onReply(const MqttMessage &message)
{
    const auto found = m_pending.find(message.correlation);
    const std::optional<Reply> reply = protocol::toReply(message);
    if (found == m_pending.end())
        return; // it came too late, or twice
    if (!reply) {
        breakOff(); // also answers the calls that wait for it
        return;
    }
    const Pending pending = *found;
    m_pending.erase(found);
    if (!pending.call)
        onGreeting(pending.session, *reply);
    else if (pending.session == m_session)
        onAnswer(pending.call, *reply);
}

void MqttSession::onGreeting(int session, const Reply &reply)
{
    if (session != m_wanted || m_session == session)
        return;
    m_asked = 0;
    const QVariantMap values = reply.value.toMap();
    m_wireSession = values.value(QStringLiteral("session")).toString();
    const qint64 time = values.value(QStringLiteral("time")).toLongLong();
    if (!reply.ok() || m_wireSession.isEmpty() || !protocol::isTime(time)) {
        complain(QStringLiteral("%1: %2").arg(m_cell, reply.text));
        return;
    }
    m_boot = values.value(QStringLiteral("boot")).toString();
    meetStore(values.value(QStringLiteral("store")).toString());
    m_cellClock.forget();
    hearTime(time);
    m_session = session;
    m_unanswered = 0;
    m_complaint.clear();
    emit greeted(session);
}

// Revisions are only comparable within one store.
void MqttSession::meetStore(const QString &store)
{
    const QString life = store + QLatin1Char('/') + m_boot;
    if (life != m_life)
        m_revisions.clear();
    if (!m_store.isEmpty() && store != m_store)
        emit problem(tr("%1 keeps other data than before").arg(m_cell));
    m_life = life;
    m_store = store;
}

void MqttSession::onAnswer(const std::shared_ptr<PendingCall> &call, const Reply &reply)
{
    const LinkRequest &request = call->request;
    if (reply.code < 0) {
        breakOff();
        call->answer({LinkReply::Lost, {}});
        return;
    }
    if (hasRevision(request) && reply.ok() && reply.revision)
        m_revisions.insert(revisionKey(request), *reply.revision);
    if (request.kind == LinkRequest::Kind::Watch && reply.ok())
        m_watched.insert(request.path);
    tellRefusal(request, reply);
    call->answer({reply.code, reply.value});
}

// The host reports that the call failed; the reason, which only the cell knows, is reported here.
void MqttSession::tellRefusal(const LinkRequest &request, const Reply &reply)
{
    const QVariantMap about = reply.value.toMap();
    const QString user = about.value(QStringLiteral("user")).toString();
    if (reply.code == controller::Conflict) {
        emit problem(
            user.isEmpty()
                ? tr("%1 was written by somebody else meanwhile").arg(request.key)
                : tr("%1 was saved by %2 at %3")
                      .arg(request.key, user, about.value(QStringLiteral("time")).toString()));
    } else if (reply.code == controller::NotInControl) {
        emit problem(user.isEmpty() ? tr("nobody holds control: take it first")
                                    : tr("%1 holds control").arg(user));
    } else if (reply.code == controller::NotAllowed) {
        emit problem(tr("%1 is not for the user %2").arg(request.path, m_user));
    }
}

void MqttSession::onAlive(const protocol::Alive &alive)
{
    if (m_session == 0)
        return;
    if (alive.boot == m_boot)
        hearTime(alive.time, sentAt(alive));
    else
        breakOff(); // the cell was restarted and does not know this session
}

// When the last beat that had reached the cell was sent; empty if it was not ours, or is too old.
std::optional<qint64> MqttSession::sentAt(const protocol::Alive &alive) const
{
    const auto found = std::find_if(m_sent.begin(), m_sent.end(),
                                    [&](const auto &sent) { return sent.first == alive.beat; });
    if (alive.client != m_client || found == m_sent.end())
        return std::nullopt;
    return found->second;
}

void MqttSession::hearTime(qint64 theirs, std::optional<qint64> sent)
{
    m_heard = m_silence.elapsed();
    m_cellClock.hear(theirs, m_clock(), sent);
}

void MqttSession::onValue(const MqttMessage &message)
{
    const auto [path, key] = m_topics.valueOf(message.topic);
    const std::optional<QVariant> value = protocol::toValue(message);
    if (value && m_session != 0 && m_watched.contains(path))
        emit notified(path, key.isEmpty() ? *value : QVariantMap{{key, *value}});
}

void MqttSession::pulse()
{
    const QMutexLocker lock(&m_mutex);
    const qint64 now = m_silence.elapsed();
    if (m_session != 0 && now - m_heard > protocol::silentCellMs) {
        breakOff();
        m_mqtt->restart(); // the fault may be this socket's
    } else if (m_session == 0 && m_asked != 0 && now - m_asked > unansweredMs) {
        m_asked = 0;
        if (++m_unanswered % m_brokers == 0)
            complain(tr("%1 does not answer: there is no such cell, or %2 may not reach it")
                         .arg(m_cell, m_user));
        m_mqtt->restart();
    }
}

void MqttSession::breakOff()
{
    for (const Pending &pending : qAsConst(m_pending)) {
        if (pending.call)
            pending.call->answer({LinkReply::Lost, {}});
    }
    m_pending.clear();
    if (m_session != 0)
        emit broken(m_session);
    m_session = 0;
}

void MqttSession::complain(const QString &line)
{
    if (line != m_complaint)
        emit problem(line);
    m_complaint = line;
}

} // namespace welmo::links
