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

/// The controller's side of a link over a broker: one cell in front of all pendants and of whoever
/// reads its values. Lives on a thread with an event loop, where everything here is called; there
/// may be many in a process. Starts with start() and serves until it is destroyed.
class CellService : public QObject
{
    Q_OBJECT
public:
    struct Options
    {
        QString cell;
        BrokerAddress address;
        QString dataFolder; ///< holds controller.db; empty: everything is in memory
        Roles roles;
        controller::Clock clock = controller::steadyClock(); ///< called on two threads
    };

    /// What came in and was not carried out, by reason.
    struct Refused
    {
        int malformed = 0; ///< no request of ours, or one that may not be answered where it wants
        int stale = 0; ///< nobody waited any more
        int repeated = 0; ///< answered before; the answer was given again
        int strange = 0; ///< of another session
        int forbidden = 0; ///< not for this user
        int crowded = 0; ///< more than a user's share

        int all() const { return malformed + stale + repeated + strange + forbidden + crowded; }
    };

    explicit CellService(const Options &options, QObject *parent = nullptr);
    ~CellService() override;

    void start();
    /// From now on; who may no longer do so loses control, or the session.
    void setRoles(const Roles &roles);
    /// A request from inside the process, in nobody's name; only once it is online.
    controller::Reply handle(const controller::Request &request);
    /// Carries out what has become due; by itself as time goes on.
    void tick();
    const Refused &refused() const { return m_refused; }
    controller::Faults *faults() { return &m_faults; }
    const controller::Journal &journal() const { return m_journal; }

signals:
    /// The broker has taken the cell, and every value was told to it.
    void online();
    /// One line: why there is no controller, or no broker.
    void problem(const QString &line);

private:
    void onOnline();
    void onOffline(const QString &reason);
    void takeIn(const MqttMessage &message);
    void workOff();
    void onMessage(const MqttMessage &message, const QString &user);
    void onRequest(const MqttMessage &message, const QString &user);
    void onBeat(const MqttMessage &message, const QString &user);
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
    /// Who holds control; told to a pendant, also whether it does itself.
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
    QString m_told; // who held control when that was told last
    Refused m_refused;
    QString m_reported;
    QTimer m_alive;
    Inbox m_inbox;
    QTimer m_work; // of no length: the other timers get their turn in between
    std::atomic<bool> m_workWanted{false};
    std::atomic<int> m_crowded{0};
    std::atomic<qint64> m_echo{0}; // when our own sign of life came back last
    qint64 m_shown = 0; // when it was sent last
    std::unique_ptr<MqttClient> m_client; // last: its thread ends first
};

} // namespace welmo::links
