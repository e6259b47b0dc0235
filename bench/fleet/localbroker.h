#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include "link/mqtt/brokeraddress.h"

namespace fleet {

/// A broker on this machine with the project's own settings, but without accounts: making a
/// thousand of them would take longer than the measurement.
class LocalBroker
{
public:
    explicit LocalBroker(int port);
    ~LocalBroker();

    const welmo::links::BrokerAddress &address() const { return m_address; }
    qint64 process() const { return m_process.processId(); }

private:
    void openToAll() const;

    QTemporaryDir m_folder;
    QProcess m_process;
    welmo::links::BrokerAddress m_address;
};

} // namespace fleet
