#pragma once

#include <QTemporaryDir>
#include <memory>
#include <sys/types.h>

#include "link/mqtt/brokeraddress.h"
#include "proxy.h"

/// The broker that the project ships, on a free port of this machine. After stop(), start() uses
/// the same port again.
class Broker
{
public:
    /// Has accounts for the cell "cell" and its users "anna", "bert" and "vera"; each password is
    /// the name backwards.
    Broker();
    ~Broker();
    /// The broker that all tests of a program share. With WELMO_TEST_LINE in the environment it is
    /// the standby of a line whose first broker is gone, and passes on to a central one.
    static Broker &shared();
    /// The central broker; without WELMO_TEST_LINE the shared one.
    static Broker &central();
    /// The way of its bridge to the central broker; null without one.
    Proxy *bridge() const { return m_bridge.get(); }

    void start();
    void stop();
    void restart();
    /// Stops the process, or lets it go on.
    void freeze(bool frozen);

    welmo::links::BrokerAddress as(const QString &user) const;
    int port() const { return m_port; }
    QString folder() const { return m_folder.path(); }
    /// From now on the broker encrypts, on the port that as() names.
    void encrypt(const QString &certificate, const QString &key);
    /// Runs the shipped script; false when that fails.
    bool tries(const QStringList &arguments, const QByteArray &input = {});
    /// Runs the shipped script; ends the test when that fails.
    void command(const QStringList &arguments, const QByteArray &input = {});

private:
    void joinLine();

    QTemporaryDir m_folder;
    pid_t m_process = 0; // not a QProcess, which does not work under emulation
    int m_port;
    bool m_encrypted = false;
    std::unique_ptr<Proxy> m_bridge;
    int m_gone = 0; // the port of the line's first broker, where nobody is
};
