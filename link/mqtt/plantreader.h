#pragma once

#include <QHash>
#include <QMap>
#include <QObject>
#include <QVariant>
#include <memory>
#include <vector>

#include "link/mqtt/mqttclient.h"
#include "link/protocol/protocol.h"

namespace welmo::links {

/// Follows all cells that an account may read, at every one of the address's brokers at once: at
/// brokers of lines, and at a central one, to which lines pass on what their cells tell.
///
/// Several brokers may tell of a cell, such as a line's and its standby. The cell is where its
/// status is present, the way there is up, and "since" is the newest.
class PlantReader : public QObject
{
    Q_OBJECT
public:
    struct Options
    {
        BrokerAddress address;
        QStringList nodes = {}; ///< whose values are wanted
        bool records = true; ///< whether what cells hand over is wanted
    };

    explicit PlantReader(const Options &options, QObject *parent = nullptr);
    ~PlantReader() override;

    void start();
    QStringList cells() const { return m_at.keys(); }
    /// Tells a cell what its recorder has; nothing happens if the cell is not there now.
    void take(const QString &cell, const protocol::Taken &taken);
    int malformed() const { return m_malformed; } ///< messages that could not be read

signals:
    /// One of the brokers has accepted the account.
    void reached();
    /// A broker tells of this cell, whether it is there or not.
    void heard(const QString &cell);
    /// The cell is there, or has come to another place.
    void came(const QString &cell);
    void gone(const QString &cell);
    void recorded(const QString &cell, const welmo::links::protocol::Record &record);
    void valueTold(const QString &cell, const QString &path, const QVariant &value);
    /// One line: no connection to a broker.
    void problem(const QString &line);

private:
    /// The number of the broker, and the line below which it tells of cells; a line's own broker
    /// has no such name.
    using Place = QPair<int, QString>;
    struct Told
    {
        protocol::Status status;
        QMap<QString, QVariant> values;
    };
    /// Where a cell is, and since when.
    using Stay = QPair<Place, qint64>;

    MqttClient::Handlers handlersOf(int broker);
    template<typename Work>
    void post(Work work);
    void subscribe(MqttClient &client) const;
    void onOffline(int broker, const QString &reason, bool all);
    void onMessage(int broker, const MqttMessage &message);
    void onCell(const Place &place, const QString &cell, const QString &topic,
                const MqttMessage &message);
    void onValue(const Place &place, const QString &cell, const QString &path,
                 const MqttMessage &message);
    void judge(const QString &cell);
    static QString rootOf(const Place &place);

    const BrokerAddress m_address;
    const QStringList m_nodes;
    const bool m_records;
    QMap<Place, bool> m_ways; // whether that line's bridge is up
    QHash<QString, QMap<Place, Told>> m_told; // by cell
    QMap<QString, Stay> m_at; // by cell, if it is there
    int m_malformed = 0;
    QMap<int, QString> m_reported; // what is wrong with a broker
    std::vector<std::unique_ptr<MqttClient>> m_clients; // last, so that their threads end first
};

} // namespace welmo::links
