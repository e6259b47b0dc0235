#pragma once

#include <QByteArray>
#include <QSemaphore>
#include <functional>
#include <memory>

struct mosquitto;
struct mosquitto_message;

namespace bench {

/// The floor of every link over a broker: a message to another client and its answer, with only the
/// library's own threads.
class RoundTrip
{
public:
    /// The broker is on this machine and needs no user.
    explicit RoundTrip(int port);
    ~RoundTrip();
    RoundTrip(const RoundTrip &) = delete;
    RoundTrip &operator=(const RoundTrip &) = delete;

    /// Sends @p question; the other client runs @p work and sends @p answer. Returns when it has
    /// arrived.
    void run(const QByteArray &question, const QByteArray &answer,
             const std::function<void()> &work);

private:
    struct Free
    {
        void operator()(mosquitto *client) const;
    };
    using Client = std::unique_ptr<mosquitto, Free>;

    Client connect(int port, const char *topic,
                   void (*onMessage)(mosquitto *, void *, const mosquitto_message *));
    void answer();

    QSemaphore m_subscribed;
    QSemaphore m_arrived;
    QByteArray m_answer;
    std::function<void()> m_work;
    Client m_asking;
    Client m_answering;
};

} // namespace bench
