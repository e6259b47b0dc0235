#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "link/mqtt/brokeraddress.h"
#include "link/mqtt/tlscontext.h"
#include "link/protocol/mqttmessage.h"

struct mosquitto;

namespace welmo::links {

/// A connection to an MQTT 5 broker on a thread of its own, which is set up again whenever it
/// breaks, at the address's next broker, until stop(). A new connection keeps no subscription and
/// no message of the old one, so that no old command arrives late.
class MqttClient
{
public:
    struct Options
    {
        BrokerAddress address;
        QString clientId;
        /// Published by the broker if this client dies.
        std::optional<MqttMessage> will = std::nullopt;
    };

    /// All are called on the client's thread and must not block, nor stop the client.
    struct Handlers
    {
        std::function<void()> online; ///< the broker has accepted the connection: subscribe now
        /// The connection broke, or could not be set up; @p all: at any of the brokers, one after
        /// the other.
        std::function<void(const QString &reason, bool all)> offline;
        std::function<void(const MqttMessage &message)> message;
        std::function<void()> pulse = {}; ///< at least every pulseMs while online
    };

    static constexpr int pulseMs = 20;

    MqttClient(Options options, Handlers handlers);
    ~MqttClient();

    void start();
    /// Ends the connection and the thread; sends @p last before, if possible.
    void stop(const std::optional<MqttMessage> &last = std::nullopt);
    /// Drops the connection, which may be dead unnoticed, and sets it up at the next broker.
    void restart();

    bool isOnline() const { return m_online; }
    /// False if there is no connection now; the message is not kept for later. Any thread; returns
    /// at once.
    bool publish(const MqttMessage &message);
    bool subscribe(const QString &filter, int qos);
    bool unsubscribe(const QString &filter);

private:
    struct Callbacks;
    struct Closer
    {
        void operator()(mosquitto *handle) const;
    };
    using Handle = std::unique_ptr<mosquitto, Closer>;

    void run();
    QString connectOnce();
    Handle makeHandle();
    QString setUp(mosquitto *handle);
    int pump(mosquitto *handle);
    int step(mosquitto *handle) const;
    void sayLast(mosquitto *handle);
    void setHandle(Handle handle);
    void moveOn(const QString &reason, bool wasOnline);
    void rest();
    template<typename Work>
    bool whileOnline(Work work);
    void wake() const;
    QString reasonFor(int result) const;

    const Options m_options;
    const Handlers m_handlers;
    std::thread m_thread;
    std::mutex m_mutex; // guards the handle and the wish to end
    std::condition_variable m_ended;
    std::unique_ptr<TlsContext> m_tls; // destroyed after the handle
    Handle m_handle;
    std::optional<MqttMessage> m_last;
    std::atomic<bool> m_ending{false};
    std::atomic<bool> m_restart{false};
    std::atomic<bool> m_online{false};
    QString m_refusal; // why the broker, or this client, refused the connection
    int m_rest = 0; // most milliseconds before the next attempt
    BrokerAddress m_address; // of the broker that is tried or used now
    int m_number = 0; // its number
    QStringList m_reasons; // why brokers could not be reached since the last connection
    int m_wake = -1; // an eventfd, written when there is something to send
};

} // namespace welmo::links
