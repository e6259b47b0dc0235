#include "bench/roundtrip.h"

#include <mosquitto.h>

namespace bench {

namespace {

constexpr char questions[] = "bench/question";
constexpr char answers[] = "bench/answer";
constexpr int qos = 1;

void demand(int result)
{
    if (result != MOSQ_ERR_SUCCESS)
        qFatal("mosquitto: %s", mosquitto_strerror(result));
}

void send(mosquitto *client, const char *topic, const QByteArray &payload)
{
    demand(
        mosquitto_publish(client, nullptr, topic, payload.size(), payload.constData(), qos, false));
}

} // namespace

void RoundTrip::Free::operator()(mosquitto *client) const
{
    mosquitto_disconnect(client);
    mosquitto_loop_stop(client, false);
    mosquitto_destroy(client);
}

RoundTrip::RoundTrip(int port)
{
    mosquitto_lib_init();
    m_answering = connect(port, questions, [](mosquitto *, void *self, const auto *) {
        static_cast<RoundTrip *>(self)->answer();
    });
    m_asking = connect(port, answers, [](mosquitto *, void *self, const auto *) {
        static_cast<RoundTrip *>(self)->m_arrived.release();
    });
}

RoundTrip::~RoundTrip()
{
    m_asking.reset();
    m_answering.reset();
    mosquitto_lib_cleanup();
}

RoundTrip::Client RoundTrip::connect(int port, const char *topic,
                                     void (*onMessage)(mosquitto *, void *,
                                                       const mosquitto_message *))
{
    Client client(mosquitto_new(nullptr, true, this));
    demand(mosquitto_int_option(client.get(), MOSQ_OPT_TCP_NODELAY, 1));
    mosquitto_message_callback_set(client.get(), onMessage);
    mosquitto_subscribe_callback_set(client.get(),
                                     [](mosquitto *, void *self, int, int, const int *) {
                                         static_cast<RoundTrip *>(self)->m_subscribed.release();
                                     });
    demand(mosquitto_connect(client.get(), "127.0.0.1", port, 60));
    demand(mosquitto_loop_start(client.get()));
    demand(mosquitto_subscribe(client.get(), nullptr, topic, qos));
    m_subscribed.acquire();
    return client;
}

void RoundTrip::run(const QByteArray &question, const QByteArray &answer,
                    const std::function<void()> &work)
{
    m_answer = answer;
    m_work = work;
    send(m_asking.get(), questions, question);
    m_arrived.acquire();
}

void RoundTrip::answer()
{
    m_work();
    send(m_answering.get(), answers, m_answer);
}

} // namespace bench
