#include "link/mqtt/mqttclient.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <algorithm>
#include <array>
#include <mosquitto.h>
#include <mqtt_protocol.h>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "link/mqtt/mqttproperties.h"

namespace welmo::links {

namespace {

constexpr int keepAliveSeconds = 5; // the least that the library accepts
constexpr int answerMs = 2000; // for the broker to accept the connection
constexpr int restMs = 200; // before the next attempt; longer after each failed one
constexpr int longestRestMs = 1500;
constexpr int idleMs = 500; // between checks of keep-alive and of a silent broker

void useLibrary()
{
    // Never cleaned up, since other clients in the process may still need it.
    static const int once = mosquitto_lib_init();
    Q_UNUSED(once)
}

} // namespace

struct MqttClient::Callbacks
{
    static MqttClient &of(void *self) { return *static_cast<MqttClient *>(self); }

    static void connected(mosquitto *, void *self, int reason, int, const mosquitto_property *)
    {
        MqttClient &client = of(self);
        if (reason != 0) {
            client.m_refusal = QString::fromUtf8(mosquitto_reason_string(reason));
            return;
        }
        client.m_online = true;
        client.m_rest = restMs;
        client.m_handlers.online();
    }

    static void received(mosquitto *, void *self, const mosquitto_message *raw,
                         const mosquitto_property *properties)
    {
        MqttMessage message{QString::fromUtf8(raw->topic),
                            {static_cast<const char *>(raw->payload), raw->payloadlen},
                            raw->qos,
                            raw->retain};
        properties::read(properties, &message);
        of(self).m_handlers.message(message);
    }
};

void MqttClient::Closer::operator()(mosquitto *handle) const
{
    mosquitto_destroy(handle);
}

MqttClient::MqttClient(Options options, Handlers handlers)
    : m_options(std::move(options))
    , m_handlers(std::move(handlers))
    , m_rest(restMs)
    , m_wake(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    useLibrary();
}

MqttClient::~MqttClient()
{
    stop();
    close(m_wake);
}

void MqttClient::start()
{
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
}

void MqttClient::restart()
{
    m_restart = true;
    wake();
}

void MqttClient::stop(const std::optional<MqttMessage> &last)
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_last = last;
        m_ending = true;
    }
    m_ended.notify_all();
    wake();
    m_thread.join();
    m_ending = false;
}

bool MqttClient::publish(const MqttMessage &message)
{
    return whileOnline([&message](mosquitto *handle) {
        const properties::List list = properties::make(message);
        return mosquitto_publish_v5(handle, nullptr, message.topic.toUtf8().constData(),
                                    message.payload.size(), message.payload.constData(),
                                    message.qos, message.retained, list.get());
    });
}

bool MqttClient::subscribe(const QString &filter, int qos)
{
    return whileOnline([&filter, qos](mosquitto *handle) {
        return mosquitto_subscribe(handle, nullptr, filter.toUtf8().constData(), qos);
    });
}

bool MqttClient::unsubscribe(const QString &filter)
{
    return whileOnline([&filter](mosquitto *handle) {
        return mosquitto_unsubscribe(handle, nullptr, filter.toUtf8().constData());
    });
}

template<typename Work>
bool MqttClient::whileOnline(Work work)
{
    const std::lock_guard lock(m_mutex);
    if (!m_online || !m_handle || work(m_handle.get()) != MOSQ_ERR_SUCCESS)
        return false;
    wake();
    return true;
}

void MqttClient::wake() const
{
    eventfd_write(m_wake, 1);
}

void MqttClient::run()
{
    // The system keeps 15 characters of a thread's name.
    pthread_setname_np(pthread_self(), m_options.clientId.left(15).toUtf8().constData());
    while (!m_ending) {
        m_address = m_options.address.at(m_number);
        const QString reason = connectOnce();
        const bool wasOnline = m_online.exchange(false);
        setHandle({});
        if (m_ending)
            return;
        moveOn(reason, wasOnline);
        rest();
    }
}

void MqttClient::moveOn(const QString &reason, bool wasOnline)
{
    m_number = (m_number + 1) % m_options.address.count();
    if (wasOnline)
        m_reasons.clear();
    m_reasons.append(reason);
    const bool isRound = m_reasons.size() >= m_options.address.count();
    m_handlers.offline(m_reasons.join(QStringLiteral("; ")), isRound);
    if (isRound)
        m_reasons.clear();
}

void MqttClient::rest()
{
    const bool isRound = m_reasons.isEmpty();
    const int most = isRound ? m_rest : restMs;
    // Random, so that the clients of a plant do not all reconnect at the same moment.
    const int rest = QRandomGenerator::global()->bounded(most / 2, most + 1);
    if (isRound)
        m_rest = std::min(m_rest * 3 / 2, longestRestMs);
    std::unique_lock lock(m_mutex);
    m_ended.wait_for(lock, std::chrono::milliseconds(rest), [this] { return m_ending.load(); });
}

// Each connection has a new handle; unsent messages are dropped with the old one.
void MqttClient::setHandle(Handle handle)
{
    const std::lock_guard lock(m_mutex);
    m_handle = std::move(handle);
}

/// Runs one connection from start to end; returns why it ended.
QString MqttClient::connectOnce()
{
    m_restart = false;
    m_refusal.clear();
    setHandle(makeHandle());
    mosquitto *handle = m_handle.get();
    const QString problem = setUp(handle);
    if (!problem.isEmpty())
        return problem;
    int result = mosquitto_connect_async(handle, m_address.host.toUtf8().constData(),
                                         m_address.port, keepAliveSeconds);
    if (result == MOSQ_ERR_SUCCESS)
        result = pump(handle);
    if (m_ending && m_online)
        sayLast(handle);
    return reasonFor(result);
}

MqttClient::Handle MqttClient::makeHandle()
{
    Handle handle(mosquitto_new(m_options.clientId.toUtf8().constData(), true, this));
    mosquitto_int_option(handle.get(), MOSQ_OPT_PROTOCOL_VERSION, MQTT_PROTOCOL_V5);
    mosquitto_int_option(handle.get(), MOSQ_OPT_TCP_NODELAY, 1);
    mosquitto_threaded_set(handle.get(), true);
    mosquitto_connect_v5_callback_set(handle.get(), &Callbacks::connected);
    mosquitto_message_v5_callback_set(handle.get(), &Callbacks::received);
    return handle;
}

/// Returns one line on failure.
QString MqttClient::setUp(mosquitto *handle)
{
    const BrokerAddress &address = m_address;
    if (!address.user.isEmpty())
        mosquitto_username_pw_set(handle, address.user.toUtf8().constData(),
                                  address.password.toUtf8().constData());
    if (const auto &will = m_options.will)
        mosquitto_will_set(handle, will->topic.toUtf8().constData(), will->payload.size(),
                           will->payload.constData(), will->qos, will->retained);
    if (!address.encrypted)
        return address.isLoopback() ? QString() : QStringLiteral("not without encryption");
    QString problem;
    m_tls = std::make_unique<TlsContext>(address, &problem);
    mosquitto_int_option(handle, MOSQ_OPT_SSL_CTX_WITH_DEFAULTS, 0);
    mosquitto_void_option(handle, MOSQ_OPT_SSL_CTX, m_tls->handle());
    return problem;
}

int MqttClient::pump(mosquitto *handle)
{
    QElapsedTimer waited;
    waited.start();
    int result = MOSQ_ERR_SUCCESS;
    while (result == MOSQ_ERR_SUCCESS && !m_ending && !m_restart && m_refusal.isEmpty()) {
        if (!m_online && waited.elapsed() > answerMs)
            return MOSQ_ERR_CONN_LOST;
        result = step(handle);
        if (m_online && m_handlers.pulse)
            m_handlers.pulse();
    }
    return result == MOSQ_ERR_SUCCESS ? MOSQ_ERR_CONN_LOST : result;
}

int MqttClient::step(mosquitto *handle) const
{
    const int socket = mosquitto_socket(handle);
    if (socket < 0)
        return MOSQ_ERR_CONN_LOST;
    const short wanted = mosquitto_want_write(handle) ? POLLIN | POLLOUT : POLLIN;
    std::array<pollfd, 2> polled{pollfd{socket, wanted, 0}, pollfd{m_wake, POLLIN, 0}};
    poll(polled.data(), polled.size(), m_handlers.pulse ? pulseMs : idleMs);
    if (polled[1].revents != 0) {
        eventfd_t count = 0;
        eventfd_read(m_wake, &count);
    }
    int result = MOSQ_ERR_SUCCESS;
    if (polled[0].revents & (POLLIN | POLLERR | POLLHUP))
        result = mosquitto_loop_read(handle, 1);
    if (result == MOSQ_ERR_SUCCESS && mosquitto_want_write(handle))
        result = mosquitto_loop_write(handle, 1);
    return result == MOSQ_ERR_SUCCESS ? mosquitto_loop_misc(handle) : result;
}

// A clean end sends no will, so its message is published here.
void MqttClient::sayLast(mosquitto *handle)
{
    if (m_last)
        publish(*m_last);
    mosquitto_disconnect(handle);
    for (int tries = 0; tries < 10 && mosquitto_want_write(handle); ++tries) {
        if (step(handle) != MOSQ_ERR_SUCCESS)
            return;
    }
}

QString MqttClient::reasonFor(int result) const
{
    QString reason = m_refusal;
    if (reason.isEmpty() && m_tls)
        reason = m_tls->refusal();
    if (reason.isEmpty())
        reason = QString::fromUtf8(mosquitto_strerror(result));
    return QStringLiteral("%1:%2: %3").arg(m_address.host, QString::number(m_address.port), reason);
}

} // namespace welmo::links
