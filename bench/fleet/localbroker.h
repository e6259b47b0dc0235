#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include "link/mqtt/brokeraddress.h"

namespace fleet {

/// A broker of our own on this machine with the settings that the project ships, accounts aside:
/// making a thousand of them would take longer than the measurement.
class LocalBroker
{
public:
    explicit LocalBroker(int port);
    ~LocalBroker();

    const welmo::links::BrokerAddress &address() const { return m_address; }
    /// Processor time so far, in seconds.
    double processorSeconds() const;

private:
    void openToAll() const;

    QTemporaryDir m_folder;
    QProcess m_process;
    welmo::links::BrokerAddress m_address;
};

} // namespace fleet
