#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QMutex>
#include <QObject>
#include <QSet>
#include <deque>
#include <memory>

#include "controller/core/clock.h"
#include "link/mqtt/mqttclient.h"
#include "link/protocol/cellclock.h"
#include "link/protocol/protocol.h"
#include "link/session/pendingcall.h"

namespace welmo::links {

/// The pendant's side of a link over a broker: carries the link's sessions to a cell. Any thread
/// may call, and every call returns at once; the signals come from the client's thread.
class MqttSession : public QObject
{
    Q_OBJECT
public:
    /// @p clock is the pendant's own; the cell's time is computed from it.
    MqttSession(const BrokerAddress &address, const QString &cell, controller::Clock clock);
    ~MqttSession() override;

    /// Asks the cell for a session; greeted() is emitted if there is one.
    void greet(int session);
    /// Sends the call to the cell; it is answered at the latest when the link breaks.
    void ask(int session, const std::shared_ptr<PendingCall> &call, int timeoutMs);
    /// Ends the session and the connection.
    void leave();
    void beat(int session, const QVector<int> &presses);

signals:
    void greeted(int session);
    void broken(int session);
    void notified(const QString &path, const QVariant &values);
    void problem(const QString &line);

private:
    struct Pending
    {
        std::shared_ptr<PendingCall> call; // null for the greeting
        int session;
    };

    void onOnline();
    void onOffline(const QString &reason); // empty while another broker is tried
    void onMessage(const MqttMessage &message);
    void onStatus(const std::optional<protocol::Status> &status);
    void onReply(const MqttMessage &message);
    void onGreeting(int session, const controller::Reply &reply);
    void onAnswer(const std::shared_ptr<PendingCall> &call, const controller::Reply &reply);
    void tellRefusal(const tessa::LinkRequest &request, const controller::Reply &reply);
    void onAlive(const protocol::Alive &alive);
    void onValue(const MqttMessage &message);
    void pulse();
    void sendGreeting();
    bool send(protocol::Request request, const Pending &pending);
    void breakOff();
    void watch(const QString &path);
    void meetStore(const QString &store);
    void hearTime(qint64 theirs, std::optional<qint64> sent = {});
    std::optional<qint64> sentAt(const protocol::Alive &alive) const;
    void complain(const QString &line);

    const protocol::Topics m_topics;
    const QString m_cell;
    const QString m_user;
    const QString m_client; // different for each object, so that pendants are never confused
    MqttMessage m_end; // says that this pendant has ended
    const controller::Clock m_clock;
    QElapsedTimer m_silence; // since the last message, of the cell or in answer to the greeting

    QMutex m_mutex; // guards all members below
    int m_wanted = 0; // the link's session; 0: none is wanted
    int m_session = 0; // the link's session that the cell has accepted; 0: none
    QString m_wireSession;
    QString m_boot;
    QString m_store; // the store's identity, as the cell last sent it
    QString m_life; // that store and boot
    qint64 m_sequence = 0; // never used twice, in any session
    qint64 m_beats = 0;
    std::deque<std::pair<qint64, qint64>> m_sent; // the last beats, and when they were sent
    CellClock m_cellClock;
    qint64 m_heard = 0; // the cell's last heartbeat
    qint64 m_asked = 0; // when the unanswered greeting was sent; 0: it was answered
    QHash<QByteArray, Pending> m_pending;
    QSet<QString> m_watched; // nodes whose values are passed on
    QHash<QString, qint64> m_revisions; // of the entries that this pendant read or wrote
    QString m_complaint;
    int m_unanswered = 0; // brokers in turn at which the cell did not answer
    const int m_brokers;

    std::unique_ptr<MqttClient> m_mqtt; // the last member, so that its thread ends first
};

} // namespace welmo::links
