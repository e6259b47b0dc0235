#pragma once

#include <optional>

#include "controller/core/request.h"
#include "link/protocol/mqttmessage.h"

/// The messages between pendants and a cell: all topics and payloads. docs/wire-protocol.md
/// describes them.
namespace welmo::links::protocol {

constexpr int version = 1;

/// The largest request of a pendant; answers may be larger.
constexpr int longestRequest = 256 * 1024;
constexpr int longestMessage = 4 * 1024 * 1024;
constexpr int longestRecord = 1024 * 1024;

/// How often both sides send a heartbeat, and after what silence the other counts as lost.
constexpr int aliveMs = 50; ///< a cell with pendants; one without is silent
constexpr int silentCellMs = 230;
constexpr int silentPendantMs = 5000;

/// Codes below zero are the link's own: nothing was carried out.
constexpr int otherSession = -3;

/// Whether the text can be the name of a cell, a user or a client in a topic.
bool isName(const QString &text);

/// Whether this can be the time of a cell's clock. Sums and differences of two do not overflow.
bool isTime(qint64 ms);

/// Whether a beat with that time can have arrived at @p now of the cell's clock. One from the
/// future is refused, since its pendant's time is wrong.
bool isCredible(qint64 beat, qint64 now);

/// The topics of one cell.
class Topics
{
public:
    explicit Topics(const QString &cell);

    QString status() const; ///< retained: whether the cell is online
    QString alive() const; ///< the heartbeat of the cell's working thread
    QString request(const QString &user) const;
    QString beat(const QString &user) const; ///< the heartbeat of a pendant's user interface
    QString reply(const QString &user, const QString &client) const;
    QString record() const; ///< what the cell hands over to a plant's recorder
    QString taken(const QString &user) const; ///< what that recorder has
    /// The topic of a node's retained value; with a key, of one of its entries.
    QString value(const QString &path, const QString &key = {}) const;
    /// The user whose request, beat or taken this is; empty for any other topic.
    QString requester(const QString &topic) const;
    QString beater(const QString &topic) const;
    QString taker(const QString &topic) const;
    /// The client whose reply topic this is, if @p user may use it; else empty.
    QString replier(const QString &topic, const QString &user) const;
    /// The node and entry whose value this is; empty for another topic.
    std::pair<QString, QString> valueOf(const QString &topic) const;

private:
    QString below(const QString &topic, const char *branch) const;

    QString m_root;
};

struct Request
{
    bool hello = false; ///< only asks for a session
    QString session;
    qint64 sequence = 0; ///< counts up within a session
    qint64 deadline = 0; ///< by the cell's clock; it is not carried out later
    controller::Request content = {};
};

/// A pendant's heartbeat or, with end, the message that it has ended.
struct Beat
{
    QString session; ///< with end: the client whose last session has ended
    qint64 sequence = 0;
    qint64 time = 0; ///< by the cell's clock, as the pendant computes it
    QVector<int> presses; ///< the presses whose keys are held, oldest first
    bool end = false;
};

/// A cell's heartbeat.
struct Alive
{
    QString boot; ///< different after each start of the cell
    qint64 time = 0;
    int refused = 0; ///< messages discarded since then
    QString client = {}; ///< who has control; empty for none
    qint64 beat = 0; ///< the sequence of its last beat that had arrived
};

/// An entry of a cell's outbox.
struct Record
{
    QString log;
    qint64 sequence = 0;
    qint64 after = 0; ///< the entry before it; 0: none is kept
    qint64 dropped = 0; ///< entries that the cell lost
    QString kind;
    QVariantMap content;
};

/// What a recorder has of that log: everything up to the sequence.
struct Taken
{
    QString log = {}; ///< empty: it does not know which one the cell has
    qint64 sequence = 0;
    bool again = false; ///< send what follows once more
};

struct Status
{
    bool present = false;
    qint64 since = 0; ///< by the cell's calendar, milliseconds since 1970
};

// Each makes or reads one message without its topic; reading another message gives nothing.
MqttMessage toMessage(const Request &request);
std::optional<Request> toRequest(const MqttMessage &message);
MqttMessage toMessage(const Beat &beat);
std::optional<Beat> toBeat(const MqttMessage &message);
MqttMessage toMessage(const Alive &alive);
std::optional<Alive> toAlive(const MqttMessage &message);
MqttMessage toMessage(const controller::Reply &reply);
std::optional<controller::Reply> toReply(const MqttMessage &message);
MqttMessage toMessage(const Record &record);
std::optional<Record> toRecord(const MqttMessage &message);
MqttMessage toMessage(const Taken &taken);
std::optional<Taken> toTaken(const MqttMessage &message);
/// A node's value, retained; an invalid one removes the retained value.
MqttMessage toValueMessage(const QVariant &value);
std::optional<QVariant> toValue(const MqttMessage &message);
/// Whether the cell is online, retained; if so, since when.
MqttMessage toStatusMessage(bool present, qint64 since = 0);
std::optional<Status> toStatus(const MqttMessage &message);

} // namespace welmo::links::protocol
