#include "link/mqtt/cellservice.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QUuid>

#include "link/session/requests.h"
#include "schema/names.h"

using welmo::controller::Reply;
using welmo::controller::Request;

namespace welmo::links {

namespace {

constexpr int echoMs = 1500; // without an echo for so long, our own connection counts as dead
constexpr int workMs = 5; // for the messages of one turn
constexpr int storeRetryMs = 1000;

const QString sessionKey = QStringLiteral("session");
const QString timeKey = QStringLiteral("time");
const QString bootKey = QStringLiteral("boot");
const QString storeKey = QStringLiteral("store");
const QString userKey = QStringLiteral("user");
const QString clientKey = QStringLiteral("client");
const QString mineKey = QStringLiteral("mine");

} // namespace

CellService::CellService(const Options &options, QObject *parent)
    : QObject(parent)
    , m_options(options)
    , m_topics(options.cell)
    , m_roles(options.roles)
    , m_boot(QUuid::createUuid().toString(QUuid::Id128))
    , m_runner(options.dataFolder, m_faults, m_journal, options.clock, this)
    , m_board([this](const QString &path, const QString &key, const QVariant &value) {
        publish(m_topics.value(path, key), protocol::toValueMessage(value));
    })
    , m_alive(this)
    , m_work(this)
{
    m_work.setSingleShot(true);
    connect(&m_work, &QTimer::timeout, this, &CellService::workOff);
    m_alive.setTimerType(Qt::PreciseTimer);
    connect(&m_alive, &QTimer::timeout, this, &CellService::showAlive);
    m_runner.setExample(options.example);
    connect(&m_runner, &ControllerRunner::problem, this, &CellService::problem);
    connect(&m_runner, &ControllerRunner::broken, this, [this] {
        m_pendants.endAll();
        afterSessions();
    });
    connect(&m_runner, &ControllerRunner::notified, this,
            [this](const QString &path, const QVariant &values) { m_board.update(path, values); });
    connect(&m_runner, &ControllerRunner::notified, this, &CellService::notified);

    // A second service with the same name takes over the first one's connection.
    MqttClient::Options how{options.address,
                            clientIdFor(options.address, QStringLiteral("cell-") + options.cell),
                            protocol::toStatusMessage(false)};
    how.will->topic = m_topics.status();
    MqttClient::Handlers handlers;
    handlers.online = posted([this] { onOnline(); });
    handlers.offline = [this](const QString &reason, bool all) {
        QMetaObject::invokeMethod(
            this, [this, reason, all] { onOffline(reason, all); }, Qt::QueuedConnection);
    };
    handlers.message = [this](const MqttMessage &message) { takeIn(message); };
    m_client = std::make_unique<MqttClient>(how, handlers);
}

CellService::~CellService()
{
    MqttMessage gone = protocol::toStatusMessage(false);
    gone.topic = m_topics.status();
    m_client->stop(gone);
}

template<typename Work>
std::function<void()> CellService::posted(Work work)
{
    return [this, work] { QMetaObject::invokeMethod(this, work, Qt::QueuedConnection); };
}

void CellService::start()
{
    if (m_runner.isReady()) {
        emit started();
        m_client->start();
        return;
    }
    // Another process may have the store for a moment, such as an earlier service that is still
    // ending.
    QTimer::singleShot(storeRetryMs, this, &CellService::start);
}

Reply CellService::handle(const Request &request)
{
    return m_runner.controller()->handle(request);
}

void CellService::tell(const QString &path, const QString &key)
{
    const Reply reply = handle({Request::Kind::Get, path, key, {}});
    if (reply.ok())
        emit told(path, reply.value);
}

void CellService::hand(const protocol::Record &record)
{
    publish(m_topics.record(), protocol::toMessage(record));
}

void CellService::tick()
{
    m_runner.tick();
    if (m_alive.isActive() && m_runner.now() - m_shown >= m_alive.interval())
        showAlive();
}

void CellService::onOnline()
{
    m_reported.clear();
    m_shown = m_runner.now();
    m_echo = m_shown;
    m_client->subscribe(m_topics.request(QStringLiteral("+")), 1);
    m_client->subscribe(m_topics.beat(QStringLiteral("+")), 0);
    m_client->subscribe(m_topics.taken(QStringLiteral("+")), 1);
    m_client->subscribe(m_topics.alive(), 0);
    m_board.tellAll(*m_runner.controller());
    m_told.clear();
    tellControl();
    publish(m_topics.status(),
            protocol::toStatusMessage(true, QDateTime::currentMSecsSinceEpoch()));
    m_online = true;
    showAlive();
    emit online();
}

void CellService::onOffline(const QString &reason, bool all)
{
    const bool wasOnline = std::exchange(m_online, false);
    m_alive.stop();
    if (m_runner.controller())
        m_runner.controller()->losePendant();
    if ((!all && !wasOnline) || reason == m_reported)
        return;
    m_reported = reason;
    emit problem(reason);
}

/// On the client's thread, so that a flood never reaches the service's own thread.
void CellService::takeIn(const MqttMessage &message)
{
    if (message.topic == m_topics.alive()) {
        m_echo = m_options.clock();
        return;
    }
    QString user;
    for (const auto &userOf :
         {&protocol::Topics::requester, &protocol::Topics::beater, &protocol::Topics::taker}) {
        if (user.isEmpty())
            user = (m_topics.*userOf)(message.topic);
    }
    if (!m_inbox.put(user, message, m_options.clock()))
        ++m_crowded;
    else if (!m_workWanted.exchange(true))
        posted([this] { workOff(); })();
}

void CellService::workOff()
{
    QElapsedTimer stretch;
    stretch.start();
    m_refused.crowded = m_crowded;
    do { // at least one message, however slow the machine is
        const std::optional<Inbox::Item> next = m_inbox.take();
        if (!next && !m_workWanted.exchange(false))
            return; // no message came between the two checks
        if (next)
            onMessage(next->message, next->user);
    } while (stretch.elapsed() < workMs);
    m_workWanted = true;
    m_work.start(0);
}

void CellService::onMessage(const MqttMessage &message, const QString &user)
{
    if (!m_runner.isReachable())
        return;
    if (message.retained)
        ++m_refused.stale; // a retained command is out of date
    else if (user.isEmpty())
        ++m_refused.malformed;
    else if (message.topic == m_topics.request(user))
        onRequest(message, user);
    else if (message.topic == m_topics.taken(user))
        onTaken(message);
    else
        onBeat(message, user);
}

void CellService::setRoles(const Roles &roles)
{
    m_roles = roles;
    m_pendants.endIf(
        [&roles](const PendantSession &session) { return roles.of(session.user) == Role::Nobody; });
    const PendantSession *holder = m_pendants.holder();
    if (holder && roles.of(holder->user) < Role::Operator)
        m_pendants.giveControl(*holder);
    afterSessions();
}

void CellService::onRequest(const MqttMessage &message, const QString &user)
{
    const QString client = m_topics.replier(message.responseTopic, user);
    if (client.isEmpty()) {
        ++m_refused.malformed; // the answer could be a command to another client
        return;
    }
    const std::optional<protocol::Request> request = protocol::toRequest(message);
    if (!request) {
        ++m_refused.malformed;
        send(message, Reply::refused(controller::BadPayload, QStringLiteral("no such request")));
        return;
    }
    if (request->hello) {
        welcome(message, user, client, request->content.key);
        return;
    }
    PendantSession *session = m_pendants.find(request->session, user);
    if (!session || session->client != client) {
        ++m_refused.strange;
        send(message, Reply::refused(protocol::otherSession, QStringLiteral("no such session")));
        return;
    }
    session->lastSeen = m_runner.now();
    if (const std::optional<Reply> reply = answerTo(*session, *request))
        send(message, *reply);
}

/// Empty for a request that is too old to be answered.
std::optional<Reply> CellService::answerTo(PendantSession &session,
                                           const protocol::Request &request)
{
    if (request.sequence <= session.lastSequence) {
        const std::optional<Reply> before = session.answerTo(request.sequence);
        before ? ++m_refused.repeated : ++m_refused.stale;
        return before;
    }
    session.lastSequence = request.sequence;
    if (request.deadline < m_runner.now()) {
        ++m_refused.stale;
        return std::nullopt;
    }
    const Reply reply = carryOut(session, request.content);
    session.remember(request.sequence, reply);
    return reply;
}

void CellService::welcome(const MqttMessage &message, const QString &user, const QString &client,
                          const QString &greeting)
{
    const Role role = m_roles.of(user);
    if (role == Role::Nobody) {
        ++m_refused.forbidden;
        send(message,
             Reply::refused(controller::NotAllowed,
                            QStringLiteral("the cell knows no user ") + user));
        return;
    }
    const PendantSession *session = m_pendants.greet(user, client, greeting, m_runner.now());
    if (!session) {
        m_refused.crowded = ++m_crowded;
        send(message,
             Reply::refused(controller::TooMuch, QStringLiteral("too many pendants of ") + user));
        return;
    }
    if (role >= Role::Operator)
        m_pendants.takeControl(*session);
    afterSessions();
    showAlive();
    send(message,
         Reply::with(QVariantMap{{sessionKey, session->id},
                                 {timeKey, m_runner.now()},
                                 {bootKey, m_boot},
                                 {storeKey, m_runner.storeIdentity()}}));
}

Reply CellService::carryOut(PendantSession &session, const Request &request)
{
    const Reply allowed = permission(session, request);
    if (allowed.ok())
        return carryOutPermitted(session, request);
    ++m_refused.forbidden;
    return allowed;
}

Reply CellService::permission(const PendantSession &session, const Request &request) const
{
    if (!m_roles.allows(session.user, request)) {
        return Reply::refused(controller::NotAllowed,
                              QStringLiteral("%1 is not for %2").arg(request.path, session.user));
    }
    const bool free = !needOf(request).control || m_pendants.holdsControl(session);
    return free ? Reply{} : notInControl();
}

Reply CellService::notInControl() const
{
    Reply reply = Reply::refused(controller::NotInControl, QStringLiteral("not in control"));
    reply.value = control();
    return reply;
}

Reply CellService::carryOutPermitted(PendantSession &session, const Request &request)
{
    if (request.path == names::control)
        return Reply::with(control(&session));
    if (request.path != names::takeControl && request.path != names::giveControl) {
        Request signedOne = request;
        signedOne.author = {session.user, session.client, timeOfDay(),
                            isBound(m_roles.of(session.user))};
        return m_runner.controller()->handle(signedOne);
    }
    if (request.path == names::giveControl)
        m_pendants.giveControl(session);
    else if (!m_pendants.takeControl(session))
        return notInControl();
    afterSessions();
    return {};
}

void CellService::send(const MqttMessage &request, const Reply &reply)
{
    MqttMessage message = protocol::toMessage(reply);
    message.correlation = request.correlation;
    m_runner.answer([this, topic = request.responseTopic, message] { publish(topic, message); });
}

void CellService::onBeat(const MqttMessage &message, const QString &user)
{
    const std::optional<protocol::Beat> beat = protocol::toBeat(message);
    if (!beat) {
        ++m_refused.malformed;
        return;
    }
    if (beat->end) {
        m_pendants.endClient(user, beat->session);
        afterSessions();
        return;
    }
    PendantSession *session = m_pendants.find(beat->session, user);
    if (!session || beat->sequence <= session->lastBeat) {
        session ? ++m_refused.stale : ++m_refused.strange;
        return;
    }
    session->lastBeat = beat->sequence;
    session->lastSeen = m_runner.now();
    // A beat that was delayed does not prove that the pendant is alive now.
    if (!protocol::isCredible(beat->time, m_runner.now())) {
        ++m_refused.stale;
    } else if (m_pendants.holdsControl(*session)) {
        m_runner.controller()->beat(qMin(beat->time, m_runner.now()), beat->presses);
        m_runner.tick();
    }
}

void CellService::onTaken(const MqttMessage &message)
{
    const std::optional<protocol::Taken> what = protocol::toTaken(message);
    if (what)
        emit taken(what->log, what->sequence, what->again);
    else
        ++m_refused.malformed;
}

void CellService::showAlive()
{
    if (!m_runner.isReachable())
        return;
    const qint64 now = m_runner.now();
    m_pendants.endSilent(now);
    afterSessions();
    protocol::Alive alive{m_boot, now, m_refused.all()};
    if (const PendantSession *holder = m_pendants.holder()) {
        alive.client = holder->client;
        alive.beat = holder->lastBeat;
    }
    publish(m_topics.alive(), protocol::toMessage(alive));
    // While this thread was blocked no echo could arrive.
    if (std::exchange(m_shown, now) - m_echo > echoMs) {
        m_echo = now;
        m_client->restart();
    }
}

// Updates what depends on the sessions.
void CellService::afterSessions()
{
    // Without a pendant the broker's keep-alive and the will are proof enough.
    const bool wanted = m_online && !m_pendants.isEmpty();
    if (!wanted) {
        m_alive.stop();
    } else if (!m_alive.isActive()) {
        m_shown = m_runner.now();
        m_echo = m_shown;
        m_alive.start(protocol::aliveMs);
    }
    tellControl();
}

void CellService::tellControl()
{
    const PendantSession *holder = m_pendants.holder();
    const QString now = holder ? holder->id : QStringLiteral("-");
    if (now == m_told)
        return;
    m_told = now;
    m_runner.controller()->losePendant(); // what the old holder's keys moved must stop
    publish(m_topics.value(names::control), protocol::toValueMessage(control()));
}

QVariant CellService::control(const PendantSession *asking) const
{
    const PendantSession *holder = m_pendants.holder();
    QVariantMap control{{userKey, holder ? holder->user : QString()},
                        {clientKey, holder ? holder->client : QString()}};
    if (asking)
        control.insert(mineKey, holder == asking);
    return control;
}

void CellService::publish(const QString &topic, MqttMessage message)
{
    message.topic = topic;
    m_client->publish(message);
}

} // namespace welmo::links
