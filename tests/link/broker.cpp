#include "broker.h"

#include <QtTest>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "loopback.h"

namespace {

QString backwards(QString text)
{
    std::reverse(text.begin(), text.end());
    return text;
}

} // namespace

Broker::Broker()
    : m_port(loopback::freePort())
{
    command({"init", folder(), QString::number(m_port)});
    command({"cell", folder(), "cell"}, "llec\n");
    for (const QString &user : QStringList{"anna", "bert", "vera"})
        command({"user", folder(), user, "cell"}, backwards(user).toUtf8() + '\n');
    start();
}

Broker::~Broker()
{
    stop();
}

Broker &Broker::shared()
{
    static Broker one;
    static const bool isInLine = qEnvironmentVariableIsSet("WELMO_TEST_LINE");
    if (isInLine && one.m_gone == 0)
        one.joinLine();
    return one;
}

Broker &Broker::central()
{
    if (shared().m_gone == 0)
        return shared();
    static Broker one;
    return one;
}

void Broker::joinLine()
{
    m_gone = loopback::freePort();
    Broker &plant = central();
    plant.command({"line", plant.folder(), "line"}, "secret\n");
    plant.restart();
    m_bridge = std::make_unique<Proxy>(plant.port());
    qAddPostRoutine([] { shared().m_bridge.reset(); }); // sockets end before the application
    const QString way = QStringLiteral("mqtt://127.0.0.1:%1").arg(m_bridge->port());
    command({"bridge", folder(), "line", way}, "secret\n");
    restart();
}

void Broker::restart()
{
    stop();
    start();
}

bool Broker::tries(const QStringList &arguments, const QByteArray &input)
{
    const QString line = QStringLiteral("'%1' '%2'").arg(BROKER_SCRIPT, arguments.join("' '"));
    FILE *script = ::popen(qPrintable(line), "w");
    return script
        && std::fwrite(input.constData(), 1, size_t(input.size()), script) == size_t(input.size())
        && ::pclose(script) == 0;
}

void Broker::command(const QStringList &arguments, const QByteArray &input)
{
    if (!tries(arguments, input))
        qFatal("the broker's script failed: %s", qPrintable(arguments.join(' ')));
}

void Broker::start()
{
    QByteArray folder = this->folder().toLocal8Bit();
    char script[] = BROKER_SCRIPT;
    char run[] = "run";
    char *arguments[] = {script, run, folder.data(), nullptr};
    if (::posix_spawn(&m_process, script, nullptr, nullptr, arguments, environ) != 0
        || !QTest::qWaitFor([this] { return loopback::accepts(m_port); }, 10000))
        qFatal("the broker does not start");
}

void Broker::stop()
{
    if (m_process == 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
    m_process = 0;
}

void Broker::freeze(bool frozen)
{
    if (m_process != 0)
        ::kill(m_process, frozen ? SIGSTOP : SIGCONT);
}

void Broker::encrypt(const QString &certificate, const QString &key)
{
    stop();
    m_port = loopback::freePort();
    m_encrypted = true;
    command({"tls", folder(), certificate, key, QString::number(m_port), "127.0.0.1"});
    start();
}

welmo::links::BrokerAddress Broker::as(const QString &user) const
{
    welmo::links::BrokerAddress address;
    address.host = QStringLiteral("127.0.0.1");
    address.port = m_port;
    if (m_gone != 0) {
        address.port = m_gone;
        address.standbys = {{address.host, m_port}};
    }
    address.encrypted = m_encrypted;
    address.user = user;
    address.password = backwards(user);
    return address;
}
