#include "link/mqtt/plantreader.h"

#include <QUuid>

namespace welmo::links {

namespace {

const QString lineRoot = QStringLiteral("welmo/%1/").arg(protocol::version);
const QString plantRoot = QStringLiteral("plant/%1/").arg(protocol::version);

} // namespace

PlantReader::PlantReader(const Options &options, QObject *parent)
    : QObject(parent)
    , m_address(options.address)
    , m_nodes(options.nodes)
    , m_records(options.records)
{
    for (int broker = 0; broker < m_address.count(); ++broker) {
        const QString id = QStringLiteral("plant-") + QUuid::createUuid().toString(QUuid::Id128);
        m_clients.push_back(std::make_unique<MqttClient>(
            MqttClient::Options{m_address.at(broker), id}, handlersOf(broker)));
    }
}

PlantReader::~PlantReader()
{
    for (const auto &client : m_clients)
        client->stop();
}

void PlantReader::start()
{
    for (const auto &client : m_clients)
        client->start();
}

template<typename Work>
void PlantReader::post(Work work)
{
    QMetaObject::invokeMethod(this, work, Qt::QueuedConnection);
}

MqttClient::Handlers PlantReader::handlersOf(int broker)
{
    MqttClient::Handlers handlers;
    handlers.online = [this, broker] {
        subscribe(*m_clients[size_t(broker)]);
        post([this, broker] {
            m_reported.remove(broker);
            emit reached();
        });
    };
    handlers.offline = [this, broker](const QString &reason, bool all) {
        post([this, broker, reason, all] { onOffline(broker, reason, all); });
    };
    handlers.message = [this, broker](const MqttMessage &message) {
        post([this, broker, message] { onMessage(broker, message); });
    };
    return handlers;
}

void PlantReader::subscribe(MqttClient &client) const
{
    client.subscribe(plantRoot + QStringLiteral("+/online"), 1);
    for (const QString &cell :
         {lineRoot + QStringLiteral("+/"), plantRoot + QStringLiteral("+/+/")}) {
        client.subscribe(cell + QStringLiteral("status"), 1);
        if (m_records)
            client.subscribe(cell + QStringLiteral("record"), 1);
        for (const QString &node : m_nodes)
            client.subscribe(cell + QStringLiteral("value/") + node, 0);
    }
}

void PlantReader::onOffline(int broker, const QString &reason, bool all)
{
    for (auto way = m_ways.begin(); way != m_ways.end();)
        way = way.key().first == broker ? m_ways.erase(way) : std::next(way);
    const QStringList cells = m_told.keys();
    for (const QString &cell : cells) {
        QMap<Place, Told> &places = m_told[cell];
        for (auto place = places.begin(); place != places.end();)
            place = place.key().first == broker ? places.erase(place) : std::next(place);
        judge(cell);
    }
    if (all && reason != m_reported.value(broker))
        emit problem(reason);
    m_reported.insert(broker, reason);
}

void PlantReader::onMessage(int broker, const MqttMessage &message)
{
    const bool below = message.topic.startsWith(plantRoot);
    const QStringList words = message.topic.split(QLatin1Char('/')).mid(2);
    const Place place{broker, below ? words.value(0) : QString()};
    const QString cell = words.value(below ? 1 : 0);
    const QString topic = QStringList(words.mid(below ? 2 : 1)).join(QLatin1Char('/'));
    if (below && cell == QLatin1String("online") && topic.isEmpty()) {
        m_ways[place] = message.payload == "1";
        const QStringList cells = m_told.keys();
        for (const QString &one : cells)
            judge(one);
    } else if (protocol::isName(cell)) {
        onCell(place, cell, topic, message);
    } else {
        ++m_malformed;
    }
}

void PlantReader::onCell(const Place &place, const QString &cell, const QString &topic,
                         const MqttMessage &message)
{
    if (topic == QLatin1String("record")) {
        const auto record = protocol::toRecord(message);
        if (record && !message.retained)
            emit recorded(cell, *record);
        else
            ++m_malformed;
    } else if (topic == QLatin1String("status")) {
        const auto status = protocol::toStatus(message);
        if (status)
            m_told[cell][place].status = *status;
        else
            ++m_malformed;
        emit heard(cell);
        judge(cell);
    } else {
        onValue(place, cell, topic.section(QLatin1Char('/'), 1), message);
    }
}

void PlantReader::onValue(const Place &place, const QString &cell, const QString &path,
                          const MqttMessage &message)
{
    const auto value = protocol::toValue(message);
    if (!value) {
        ++m_malformed;
        return;
    }
    m_told[cell][place].values.insert(path, *value);
    const auto at = m_at.constFind(cell);
    if (at != m_at.constEnd() && at->first == place)
        emit valueTold(cell, path, *value);
}

// Sets where the cell is, by what the brokers tell of it now.
void PlantReader::judge(const QString &cell)
{
    const QMap<Place, Told> &places = m_told[cell];
    const Told *best = nullptr;
    Stay stay;
    for (auto place = places.begin(); place != places.end(); ++place) {
        const bool isThere =
            place->status.present && (place.key().second.isEmpty() || m_ways.value(place.key()));
        if (isThere && (!best || place->status.since > best->status.since)) {
            best = &*place;
            stay = {place.key(), place->status.since};
        }
    }
    const bool wasThere = m_at.contains(cell);
    if (!best) {
        m_at.remove(cell);
        if (wasThere)
            emit gone(cell);
    } else if (!wasThere || m_at.value(cell) != stay) {
        m_at.insert(cell, stay);
        emit came(cell);
        for (auto value = best->values.begin(); value != best->values.end(); ++value)
            emit valueTold(cell, value.key(), value.value());
    }
}

QString PlantReader::rootOf(const Place &place)
{
    return place.second.isEmpty() ? lineRoot : plantRoot + place.second + QLatin1Char('/');
}

void PlantReader::take(const QString &cell, const protocol::Taken &taken)
{
    const auto at = m_at.constFind(cell);
    if (at == m_at.constEnd())
        return;
    MqttMessage message = protocol::toMessage(taken);
    message.topic = rootOf(at->first) + cell + QStringLiteral("/taken/") + m_address.user;
    m_clients[size_t(at->first.first)]->publish(message);
}

} // namespace welmo::links
