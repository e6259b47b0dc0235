#include "link/protocol/protocol.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <algorithm>
#include <iterator>

#include "controller/core/json.h"

using welmo::controller::Reply;
using Kind = welmo::controller::Request::Kind;

namespace welmo::links::protocol {

namespace {

const QString sessionProperty = QStringLiteral("session");
const QString sequenceProperty = QStringLiteral("sequence");
const QString deadlineProperty = QStringLiteral("deadline");
const QString timeProperty = QStringLiteral("time");

const QString codeKey = QStringLiteral("code");
const QString valueKey = QStringLiteral("value");
const QString textKey = QStringLiteral("text");
const QString revisionKey = QStringLiteral("revision");
const QString kindKey = QStringLiteral("kind");
const QString pathKey = QStringLiteral("path");
const QString keyKey = QStringLiteral("key");
const QString payloadKey = QStringLiteral("payload");
const QString pressesKey = QStringLiteral("presses");
const QString endKey = QStringLiteral("end");
const QString bootKey = QStringLiteral("boot");
const QString timeKey = QStringLiteral("time");
const QString refusedKey = QStringLiteral("refused");
const QString clientKey = QStringLiteral("client");
const QString sinceKey = QStringLiteral("since");
const QString beatKey = QStringLiteral("beat");
const QString presentKey = QStringLiteral("present");

const QString logKey = QStringLiteral("log");
const QString sequenceKey = QStringLiteral("sequence");
const QString afterKey = QStringLiteral("after");
const QString droppedKey = QStringLiteral("dropped");
const QString contentKey = QStringLiteral("content");
const QString againKey = QStringLiteral("again");

const QString helloWord = QStringLiteral("hello");
const std::pair<Kind, QString> kindWords[]{{Kind::Get, QStringLiteral("get")},
                                           {Kind::Set, QStringLiteral("set")},
                                           {Kind::Watch, QStringLiteral("watch")},
                                           {Kind::Command, QStringLiteral("command")}};

constexpr int mostHeldKeys = 16;

QVariantList listOf(const QVector<int> &numbers)
{
    QVariantList list;
    std::copy(numbers.begin(), numbers.end(), std::back_inserter(list));
    return list;
}

QByteArray compact(const QVariantMap &map)
{
    return QJsonDocument(QJsonObject::fromVariantMap(map)).toJson(QJsonDocument::Compact);
}

/// A message's payload as a map of plain values; QJsonDocument refuses what is not UTF-8, not a
/// number, or nested too deeply.
std::optional<QVariantMap> mapOf(const QByteArray &payload, int longest)
{
    if (payload.size() > longest || !payload.startsWith('{') || controller::repeatsKey(payload))
        return std::nullopt;
    const std::optional<QVariant> map = controller::fromJson('[' + payload + ']');
    if (!map || map->userType() != QMetaType::QVariantMap || !controller::isPlain(*map))
        return std::nullopt;
    return map->toMap();
}

/// Reads values and checks their types; an error remains until the end.
class Reader
{
public:
    explicit Reader(const QVariantMap &map)
        : m_map(map)
    { }

    QString text(const QString &key) { return take(key, {QMetaType::QString}).toString(); }
    qint64 number(const QString &key)
    {
        return take(key, {QMetaType::Int, QMetaType::LongLong}).toLongLong();
    }
    int integer(const QString &key) { return take(key, {QMetaType::Int}).toInt(); }
    QVector<int> integers(const QString &key)
    {
        QVector<int> numbers;
        for (const QVariant &number : take(key, {QMetaType::QVariantList}).toList()) {
            m_good = m_good && number.userType() == QMetaType::Int;
            numbers.append(number.toInt());
        }
        m_good = m_good && numbers.size() <= mostHeldKeys;
        return numbers;
    }
    bool flag(const QString &key) { return take(key, {QMetaType::Bool}).toBool(); }
    /// Also a count that no reader of JSON may round.
    qint64 time(const QString &key)
    {
        const qint64 time = number(key);
        m_good = m_good && isTime(time);
        return time;
    }
    QVariantMap map(const QString &key) { return take(key, {QMetaType::QVariantMap}).toMap(); }
    QVariant any(const QString &key) { return m_map.value(key); }
    bool has(const QString &key) const { return m_map.contains(key); }
    bool good() const { return m_good; }

private:
    QVariant take(const QString &key, std::initializer_list<int> types)
    {
        const QVariant value = m_map.value(key);
        if (!value.isValid())
            return value;
        if (std::find(types.begin(), types.end(), value.userType()) == types.end())
            m_good = false;
        return value;
    }

    const QVariantMap &m_map;
    bool m_good = true;
};

qint64 numberOf(const MqttMessage &message, const QString &property, bool *good)
{
    bool read = false;
    const qint64 number = message.property(property).toLongLong(&read);
    *good = *good && read;
    return number;
}

bool readKind(const QString &word, Request *request)
{
    request->hello = word == helloWord;
    const auto found = std::find_if(std::begin(kindWords), std::end(kindWords),
                                    [&word](const auto &entry) { return entry.second == word; });
    if (found != std::end(kindWords))
        request->content.kind = found->first;
    return request->hello || found != std::end(kindWords);
}

QString wordFor(const Request &request)
{
    if (request.hello)
        return helloWord;
    const auto found =
        std::find_if(std::begin(kindWords), std::end(kindWords),
                     [&](const auto &entry) { return entry.first == request.content.kind; });
    return found->second;
}

void put(QVariantMap *map, const QString &key, const QString &text)
{
    if (!text.isEmpty())
        map->insert(key, text);
}

void put(QVariantMap *map, const QString &key, const std::optional<qint64> &number)
{
    if (number)
        map->insert(key, *number);
}

std::optional<qint64> optionalNumber(Reader *reader, const QString &key)
{
    return reader->has(key) ? std::make_optional(reader->number(key)) : std::nullopt;
}

} // namespace

bool isName(const QString &text)
{
    static const QRegularExpression name(QStringLiteral("^[A-Za-z0-9._-]{1,64}$"));
    return name.match(text).hasMatch();
}

bool isCredible(qint64 beat, qint64 now)
{
    constexpr qint64 rounding = 2; // both clocks count whole milliseconds
    return beat <= now + rounding;
}

bool isTime(qint64 ms)
{
    // Larger numbers are not exact in every JSON reader.
    constexpr qint64 last = qint64(1) << 53;
    return ms >= 0 && ms <= last;
}

Topics::Topics(const QString &cell)
    : m_root(QStringLiteral("welmo/%1/%2/").arg(version).arg(cell))
{ }

QString Topics::status() const
{
    return m_root + QStringLiteral("status");
}

QString Topics::alive() const
{
    return m_root + QStringLiteral("alive");
}

QString Topics::request(const QString &user) const
{
    return m_root + QStringLiteral("request/") + user;
}

QString Topics::beat(const QString &user) const
{
    return m_root + QStringLiteral("beat/") + user;
}

QString Topics::reply(const QString &user, const QString &client) const
{
    return m_root + QStringLiteral("reply/%1/%2").arg(user, client);
}

QString Topics::record() const
{
    return m_root + QStringLiteral("record");
}

QString Topics::taken(const QString &user) const
{
    return m_root + QStringLiteral("taken/") + user;
}

QString Topics::value(const QString &path, const QString &key) const
{
    const QString topic = m_root + QStringLiteral("value/") + path;
    return key.isEmpty() ? topic : topic + QLatin1Char('/') + key;
}

QString Topics::below(const QString &topic, const char *branch) const
{
    const QString prefix = m_root + QLatin1String(branch);
    return topic.startsWith(prefix) ? topic.mid(prefix.size()) : QString();
}

QString Topics::requester(const QString &topic) const
{
    const QString user = below(topic, "request/");
    return isName(user) ? user : QString();
}

QString Topics::beater(const QString &topic) const
{
    const QString user = below(topic, "beat/");
    return isName(user) ? user : QString();
}

QString Topics::taker(const QString &topic) const
{
    const QString user = below(topic, "taken/");
    return isName(user) ? user : QString();
}

QString Topics::replier(const QString &topic, const QString &user) const
{
    const QString prefix = reply(user, {});
    const QString client = topic.startsWith(prefix) ? topic.mid(prefix.size()) : QString();
    return isName(client) ? client : QString();
}

std::pair<QString, QString> Topics::valueOf(const QString &topic) const
{
    const QStringList parts = below(topic, "value/").split(QLatin1Char('/'));
    return {parts.first(), parts.value(1)};
}

MqttMessage toMessage(const Request &request)
{
    const controller::Request &content = request.content;
    QVariantMap map{{kindKey, wordFor(request)}};
    put(&map, pathKey, content.path);
    put(&map, keyKey, content.key);
    put(&map, revisionKey, content.revision);
    if (content.payload.isValid())
        map.insert(payloadKey, content.payload);
    MqttMessage message{{}, compact(map), 1};
    message.properties = {{sessionProperty, request.session},
                          {sequenceProperty, QString::number(request.sequence)},
                          {deadlineProperty, QString::number(request.deadline)}};
    return message;
}

std::optional<Request> toRequest(const MqttMessage &message)
{
    const auto map = mapOf(message.payload, longestRequest);
    if (!map)
        return std::nullopt;
    Reader reader(*map);
    Request request;
    bool good = readKind(reader.text(kindKey), &request);
    request.session = message.property(sessionProperty);
    if (!request.hello) {
        request.sequence = numberOf(message, sequenceProperty, &good);
        request.deadline = numberOf(message, deadlineProperty, &good);
        good = good && isTime(request.deadline);
    }
    request.content.path = reader.text(pathKey);
    request.content.key = reader.text(keyKey);
    request.content.payload = reader.any(payloadKey);
    request.content.revision = optionalNumber(&reader, revisionKey);
    return good && reader.good() ? std::make_optional(request) : std::nullopt;
}

MqttMessage toMessage(const Beat &beat)
{
    if (beat.end)
        return {{}, compact({{endKey, beat.session}})};
    MqttMessage message{{}, compact({{pressesKey, listOf(beat.presses)}})};
    message.properties = {{sessionProperty, beat.session},
                          {sequenceProperty, QString::number(beat.sequence)},
                          {timeProperty, QString::number(beat.time)}};
    return message;
}

std::optional<Beat> toBeat(const MqttMessage &message)
{
    const auto map = mapOf(message.payload, longestRequest);
    if (!map)
        return std::nullopt;
    Reader reader(*map);
    bool good = true;
    Beat beat;
    beat.session = reader.text(endKey);
    beat.end = !beat.session.isEmpty();
    if (beat.end)
        return reader.good() ? std::make_optional(beat) : std::nullopt;
    beat.session = message.property(sessionProperty);
    beat.sequence = numberOf(message, sequenceProperty, &good);
    beat.time = numberOf(message, timeProperty, &good);
    beat.presses = reader.integers(pressesKey);
    return good && isTime(beat.time) && reader.good() ? std::make_optional(beat) : std::nullopt;
}

MqttMessage toMessage(const Alive &alive)
{
    return {{},
            compact({{bootKey, alive.boot},
                     {timeKey, alive.time},
                     {refusedKey, alive.refused},
                     {clientKey, alive.client},
                     {beatKey, alive.beat}})};
}

std::optional<Alive> toAlive(const MqttMessage &message)
{
    const auto map = mapOf(message.payload, longestRequest);
    if (!map)
        return std::nullopt;
    Reader reader(*map);
    const Alive alive{reader.text(bootKey), reader.time(timeKey), reader.integer(refusedKey),
                      reader.text(clientKey), reader.number(beatKey)};
    return reader.good() && !alive.boot.isEmpty() ? std::make_optional(alive) : std::nullopt;
}

MqttMessage toMessage(const Reply &reply)
{
    QVariantMap map{{codeKey, reply.code}};
    put(&map, textKey, reply.text);
    put(&map, revisionKey, reply.revision);
    if (reply.value.isValid())
        map.insert(valueKey, reply.value);
    MqttMessage message{{}, compact(map), 1};
    if (message.payload.size() <= longestMessage)
        return message;
    return toMessage(
        Reply::refused(controller::TooMuch,
                       QStringLiteral("the answer would have %1 bytes, at most %2 are sent")
                           .arg(message.payload.size())
                           .arg(longestMessage)));
}

std::optional<Reply> toReply(const MqttMessage &message)
{
    const auto map = mapOf(message.payload, longestMessage);
    if (!map || !map->contains(codeKey))
        return std::nullopt;
    Reader reader(*map);
    Reply reply{reader.integer(codeKey), reader.any(valueKey), reader.text(textKey)};
    reply.revision = optionalNumber(&reader, revisionKey);
    return reader.good() ? std::make_optional(reply) : std::nullopt;
}

MqttMessage toMessage(const Record &record)
{
    return {{},
            compact({{logKey, record.log},
                     {sequenceKey, record.sequence},
                     {afterKey, record.after},
                     {droppedKey, record.dropped},
                     {kindKey, record.kind},
                     {contentKey, record.content}}),
            1};
}

std::optional<Record> toRecord(const MqttMessage &message)
{
    const auto map = mapOf(message.payload, longestRecord);
    if (!map)
        return std::nullopt;
    Reader reader(*map);
    const Record record{reader.text(logKey),     reader.time(sequenceKey), reader.time(afterKey),
                        reader.time(droppedKey), reader.text(kindKey),     reader.map(contentKey)};
    const bool good = reader.good() && isName(record.log) && record.sequence > record.after;
    return good ? std::make_optional(record) : std::nullopt;
}

MqttMessage toMessage(const Taken &taken)
{
    return {{},
            compact({{logKey, taken.log}, {sequenceKey, taken.sequence}, {againKey, taken.again}}),
            1};
}

std::optional<Taken> toTaken(const MqttMessage &message)
{
    const auto map = mapOf(message.payload, longestRequest);
    if (!map)
        return std::nullopt;
    Reader reader(*map);
    const Taken taken{reader.text(logKey), reader.time(sequenceKey), reader.flag(againKey)};
    return reader.good() ? std::make_optional(taken) : std::nullopt;
}

MqttMessage toValueMessage(const QVariant &value)
{
    MqttMessage message;
    message.retained = true;
    if (value.isValid())
        message.payload = compact({{valueKey, value}});
    return message;
}

std::optional<QVariant> toValue(const MqttMessage &message)
{
    if (message.payload.isEmpty())
        return QVariant();
    const auto map = mapOf(message.payload, longestMessage);
    const bool told = map && map->contains(valueKey);
    return told ? std::make_optional(map->value(valueKey)) : std::nullopt;
}

MqttMessage toStatusMessage(bool present, qint64 since)
{
    QVariantMap status{{presentKey, present}};
    if (present)
        status.insert(sinceKey, since);
    return {{}, compact(status), 1, true};
}

std::optional<Status> toStatus(const MqttMessage &message)
{
    const auto map = mapOf(message.payload, longestRequest);
    if (!map || !map->contains(presentKey))
        return std::nullopt;
    Reader reader(*map);
    const Status status{reader.flag(presentKey), reader.time(sinceKey)};
    return reader.good() ? std::make_optional(status) : std::nullopt;
}

} // namespace welmo::links::protocol
