#pragma once

#include <QTemporaryDir>
#include <sys/types.h>

#include "link/mqtt/brokeraddress.h"

/// A broker of our own on a free port of this machine, as the project ships it. It runs until
/// stop() or its end, and comes back on the same port.
class Broker
{
public:
    /// With accounts for the cell "cell" and for the users "anna", "bert" and "vera", who may all
    /// reach it; each one's password is the name backwards.
    Broker();
    ~Broker();
    /// One for all tests of a program. With WELMO_TEST_LINE in the environment it is the standby
    /// of a line whose first broker is gone, and passes on to a central one.
    static Broker &shared();
    /// That central broker; without it the shared one.
    static Broker &central();

    void start();
    void stop();
    void restart();
    /// Holds the process, and lets it go on.
    void freeze(bool frozen);

    welmo::links::BrokerAddress as(const QString &user) const;
    int port() const { return m_port; }
    QString folder() const { return m_folder.path(); }
    /// Serves encrypted on another port from now on, as the user finds it in as().
    void encrypt(const QString &certificate, const QString &key);
    /// Runs the shipped script; false when that fails.
    bool tries(const QStringList &arguments, const QByteArray &input = {});
    /// Likewise, and ends the test when that fails.
    void command(const QStringList &arguments, const QByteArray &input = {});

private:
    void joinLine();

    QTemporaryDir m_folder;
    pid_t m_process = 0; // not a QProcess, which does not work under emulation
    int m_port;
    bool m_encrypted = false;
    int m_gone = 0; // the port of the line's first broker, where nobody is
};
