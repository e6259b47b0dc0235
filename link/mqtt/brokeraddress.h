#pragma once

#include <QString>

namespace welmo::links {

/// Where a broker is, and as whom to go there.
struct BrokerAddress
{
    QString host;
    int port = 0;
    bool encrypted = false;
    QString user;
    QString password;
    QString caFile; ///< who may have signed the broker's certificate; empty: whom the system trusts

    /// True for a host that no network lies in front of.
    bool isLoopback() const;
};

/// An address as it stands on a command line: mqtt:// or
/// mqtts://[USER:PASSWORD@]HOST[:PORT][/CELL]. A password that is not in it is taken from the
/// environment, WELMO_BROKER_PASSWORD, and the file with the trusted certificates from
/// WELMO_BROKER_CA. @p cell is left alone when there is none. One line when it cannot be used, also
/// when it would leave this machine without encryption.
QString parseAddress(const QString &text, BrokerAddress *address, QString *cell);

/// A client id for who is @p name at that broker: the same each time, so that a new connection
/// takes the place of an earlier one, and nobody who does not know the password can do the same.
QString clientIdFor(const BrokerAddress &address, const QString &name);

} // namespace welmo::links
