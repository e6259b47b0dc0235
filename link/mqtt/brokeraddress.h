#pragma once

#include <QString>

namespace welmo::links {

/// A broker's address, and the user there.
struct BrokerAddress
{
    QString host;
    int port = 0;
    bool encrypted = false;
    QString user;
    QString password;
    QString caFile; ///< certificates of trusted authorities; empty: those that the system trusts

    /// Whether the host is this machine.
    bool isLoopback() const;
};

/// Parses an address from a command line: mqtt:// or mqtts://[USER:PASSWORD@]HOST[:PORT][/CELL]. A
/// missing password is taken from the environment, WELMO_BROKER_PASSWORD, and the file with trusted
/// certificates from WELMO_BROKER_CA. Without a CELL, @p cell does not change. Returns one line if
/// the address cannot be used, also if it would leave this machine without encryption.
QString parseAddress(const QString &text, BrokerAddress *address, QString *cell);

/// The client id for @p name at that broker. It is always the same, so that a new connection
/// replaces an earlier one, but cannot be guessed without the password.
QString clientIdFor(const BrokerAddress &address, const QString &name);

} // namespace welmo::links
