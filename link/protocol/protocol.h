#pragma once

#include <optional>

#include "controller/core/request.h"
#include "link/protocol/mqttmessage.h"

/// What goes over the wire between a pendant and a cell: topics and payloads, here and nowhere
/// else. docs/wire-protocol.md says the same to people.
namespace welmo::links::protocol {

constexpr int version = 1;

/// What a pendant may not exceed; a cell may answer more.
constexpr int longestRequest = 256 * 1024;
constexpr int longestMessage = 4 * 1024 * 1024;

/// How often both sides show that they are alive, and after how long a silence the other is lost.
constexpr int aliveMs = 50; ///< a cell with pendants
constexpr int aliveIdleMs = 1000; ///< a cell without
constexpr int silentCellMs = 230;
constexpr int silentPendantMs = 5000;

/// Codes below zero: the link's own, nothing was carried out.
constexpr int otherSession = -3;

/// True for what can stand as the name of a cell, a user or a client in a topic.
bool isName(const QString &text);

/// True for what can be the time of a cell's clock. Sums and differences of two stay numbers.
bool isTime(qint64 ms);

/// Whether a beat of that time may have come in at @p now of the cell's clock: one from the future
/// tells that its pendant has a wrong idea of the time, and proves nothing.
bool isCredible(qint64 beat, qint64 now);

/// The topics of one cell.
class Topics
{
public:
    explicit Topics(const QString &cell);

    QString status() const; ///< retained: whether the cell is there
    QString alive() const; ///< the cell's working thread is
    QString request(const QString &user) const;
    QString beat(const QString &user) const; ///< a pendant's user interface is
    QString reply(const QString &user, const QString &client) const;
    /// Where a node's value is retained; with a key, that of one of its entries.
    QString value(const QString &path, const QString &key = {}) const;
    /// Whose request or beat it is; empty for another topic, or none of this cell.
    QString requester(const QString &topic) const;
    QString beater(const QString &topic) const;
    /// The client whose reply topic it is in the area of @p user; empty when it is not there.
    QString replier(const QString &topic, const QString &user) const;
    /// The node, and entry, whose value it is; empty for another topic.
    std::pair<QString, QString> valueOf(const QString &topic) const;

private:
    QString below(const QString &topic, const char *branch) const;

    QString m_root;
};

struct Request
{
    bool hello = false; ///< asks for a session, and for nothing else
    QString session;
    qint64 sequence = 0; ///< counts up within a session
    qint64 deadline = 0; ///< by the cell's clock: nobody waits for the answer after it
    controller::Request content = {};
};

/// A pendant shows that it is alive; or, with end, that it is gone.
struct Beat
{
    QString session; ///< with end: the client instead, whose last session is over
    qint64 sequence = 0;
    qint64 time = 0; ///< by the cell's clock, as the pendant knows it
    QVector<int> presses; ///< those that hold a key now, oldest first
    bool end = false;
};

/// What a cell says of itself.
struct Alive
{
    QString boot; ///< another one each time that the cell starts
    qint64 time = 0;
    int refused = 0; ///< messages that were no use since then
    QString client = {}; ///< who holds control; empty for nobody
    qint64 beat = 0; ///< the sequence of its last beat that came in before this
};

// Each is one message without its topic; reading gives nothing when the message is not such a one.
MqttMessage toMessage(const Request &request);
std::optional<Request> toRequest(const MqttMessage &message);
MqttMessage toMessage(const Beat &beat);
std::optional<Beat> toBeat(const MqttMessage &message);
MqttMessage toMessage(const Alive &alive);
std::optional<Alive> toAlive(const MqttMessage &message);
MqttMessage toMessage(const controller::Reply &reply);
std::optional<controller::Reply> toReply(const MqttMessage &message);
/// A node's value, retained; an invalid one takes what was retained away.
MqttMessage toValueMessage(const QVariant &value);
std::optional<QVariant> toValue(const MqttMessage &message);
/// Whether the cell is there, retained.
MqttMessage toStatusMessage(bool present);
std::optional<bool> toStatus(const MqttMessage &message);

} // namespace welmo::links::protocol
