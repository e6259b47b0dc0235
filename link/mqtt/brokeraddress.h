#pragma once

#include <QPair>
#include <QString>
#include <QVector>

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
    /// Host and port of further brokers, for the same user, to be tried in turn.
    QVector<QPair<QString, int>> standbys = {};

    int count() const { return 1 + standbys.size(); }
    /// The broker with that number, from 0; without the others.
    BrokerAddress at(int number) const;
    void take(const QPair<QString, int> &place); ///< sets host and port

    /// Whether the host is this machine.
    bool isLoopback() const;
};

/// Parses an address from a command line: mqtt:// or
/// mqtts://[USER:PASSWORD@]HOST[:PORT][,HOST[:PORT]...][/CELL]. A missing password is taken from
/// the environment, WELMO_BROKER_PASSWORD, and the file with trusted certificates from
/// WELMO_BROKER_CA. Without a CELL, @p cell does not change. Returns one line if the address cannot
/// be used, also if one of the hosts would be reached without encryption although it is another
/// machine.
QString parseAddress(const QString &text, BrokerAddress *address, QString *cell);

/// The client id for @p name at that broker. It is always the same, so that a new connection
/// replaces an earlier one, but cannot be guessed without the password.
QString clientIdFor(const BrokerAddress &address, const QString &name);

} // namespace welmo::links
