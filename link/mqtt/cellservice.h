#pragma once

#include <QObject>
#include <QTimer>
#include <atomic>
#include <memory>

#include "link/mqtt/inbox.h"
#include "link/mqtt/mqttclient.h"
#include "link/mqtt/pendants.h"
#include "link/mqtt/retainedvalues.h"
#include "link/protocol/protocol.h"
#include "link/session/controllerrunner.h"
#include "link/session/roles.h"

namespace welmo::links {

/// The controller's side of a link over a broker: one cell with its pendants and other readers of
/// its values. All functions are called on its thread, which has an event loop; a process may have
/// many cells. It serves from start() until it is destroyed.
class CellService : public QObject
{
    Q_OBJECT
public:
    struct Options
    {
        QString cell;
        BrokerAddress address;
        QString dataFolder; ///< holds controller.db; empty: the store is in memory
        Roles roles;
        controller::Clock clock = controller::steadyClock(); ///< called on two threads
        bool example = false; ///< a controller without parameter files gets those of the examples
    };

    /// Counts of messages that were not carried out, by reason.
    struct Refused
    {
        int malformed = 0; ///< not a valid request, or one whose reply topic is not allowed
        int stale = 0; ///< the deadline has passed
        int repeated = 0; ///< answered before; the answer was sent again
        int strange = 0; ///< of another session
        int forbidden = 0; ///< not allowed to this user
        int crowded = 0; ///< beyond a user's share

        int all() const { return malformed + stale + repeated + strange + forbidden + crowded; }
    };

    explicit CellService(const Options &options, QObject *parent = nullptr);
    ~CellService() override;

    void start();
    /// Applies from now on; a user who may no longer do so loses control, or the session.
    void setRoles(const Roles &roles);
    /// A request from inside the process, without a user; only while online.
    controller::Reply handle(const controller::Request &request);
    /// Reads a node, or its entry; told() has the value.
    void tell(const QString &path, const QString &key = {});
    /// Hands an entry of the cell's outbox over to recorders, if there is a connection now. Any
    /// thread.
    void hand(const protocol::Record &record);
    /// Carries out what is due; called by timers.
    void tick();
    const Refused &refused() const { return m_refused; }
    controller::Faults *faults() { return &m_faults; }
    const controller::Journal &journal() const { return m_journal; }

signals:
    /// The controller has started: nodes can be read.
    void started();
    /// See controller::Controller::setNotify().
    void notified(const QString &path, const QVariant &values);
    void told(const QString &path, const QVariant &value);
    /// A recorder said what it has, see protocol::Taken.
    void taken(const QString &log, qint64 sequence, bool again);
    /// The broker has accepted the cell, and every value is published.
    void online();
    /// One line: why there is no controller, or no connection to the broker.
    void problem(const QString &line);

private:
    void onOnline();
    void onOffline(const QString &reason, bool all);
    void takeIn(const MqttMessage &message);
    void workOff();
    void onMessage(const MqttMessage &message, const QString &user);
    void onRequest(const MqttMessage &message, const QString &user);
    void onBeat(const MqttMessage &message, const QString &user);
    void onTaken(const MqttMessage &message);
    void welcome(const MqttMessage &message, const QString &user, const QString &client,
                 const QString &greeting);
    std::optional<controller::Reply> answerTo(PendantSession &session,
                                              const protocol::Request &request);
    controller::Reply carryOut(PendantSession &session, const controller::Request &request);
    controller::Reply permission(const PendantSession &session,
                                 const controller::Request &request) const;
    controller::Reply notInControl() const;
    controller::Reply carryOutPermitted(PendantSession &session,
                                        const controller::Request &request);
    void send(const MqttMessage &request, const controller::Reply &reply);
    void showAlive();
    void afterSessions();
    void tellControl();
    /// The node's value: who has control and, for a pendant, whether it has it itself.
    QVariant control(const PendantSession *asking = nullptr) const;
    void publish(const QString &topic, MqttMessage message);
    template<typename Work>
    std::function<void()> posted(Work work);

    const Options m_options;
    const protocol::Topics m_topics;
    Roles m_roles;
    const QString m_boot;
    controller::Faults m_faults;
    controller::Journal m_journal;
    ControllerRunner m_runner;
    RetainedValues m_board;
    Pendants m_pendants;
    QString m_told; // who had control when that was last published
    Refused m_refused;
    QString m_reported;
    QTimer m_alive; // runs while there are pendants
    bool m_online = false;
    Inbox m_inbox;
    QTimer m_work; // with an interval of 0, so that other timers run in between
    std::atomic<bool> m_workWanted{false};
    std::atomic<int> m_crowded{0};
    std::atomic<qint64> m_echo{0}; // when our own echo last came back
    qint64 m_shown = 0; // when it was last sent
    std::unique_ptr<MqttClient> m_client; // the last member, so that its thread ends first
};

} // namespace welmo::links
