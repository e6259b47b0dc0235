#pragma once

#include <QMap>
#include <QObject>
#include <QVariantMap>
#include <memory>
#include <mutex>

#include "link/mqtt/brokeraddress.h"

namespace welmo::links {
class PlantReader;
}

namespace plantpage {

/// What all cells of a plant tell now. It reads from the brokers only while it is wanted, since the
/// values of many cells that weld are a load.
class Watch : public QObject
{
    Q_OBJECT
public:
    struct Cell
    {
        bool there = false;
        qint64 changed = 0; ///< when it came or went, ms since 1970; 0: it was there from the start
        QMap<QString, QVariantMap> values; ///< its nodes' newest, by path
    };
    using Cells = QMap<QString, Cell>;

    explicit Watch(const welmo::links::BrokerAddress &address);
    ~Watch() override;

    void setWanted(bool wanted);
    /// Any thread.
    Cells cells() const;
    /// Why a broker is not reached; empty if all is well. Any thread.
    QString problem() const;

private:
    void begin();
    void change(const QString &cell, const std::function<void(Cell &)> &work);

    const welmo::links::BrokerAddress m_address;
    mutable std::mutex m_mutex; // guards the following two
    Cells m_cells;
    QString m_problem;
    std::unique_ptr<welmo::links::PlantReader> m_reader;
};

} // namespace plantpage
