#include "broker.h"

#include <QtTest>
#include <algorithm>
#include <csignal>

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
    for (const QString user : {"anna", "bert", "vera"})
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
    return one;
}

void Broker::command(const QStringList &arguments, const QByteArray &input)
{
    QProcess script;
    script.setProcessChannelMode(QProcess::ForwardedChannels);
    script.start(BROKER_SCRIPT, arguments);
    script.write(input);
    script.closeWriteChannel();
    if (!script.waitForFinished() || script.exitCode() != 0)
        qFatal("the broker's script failed: %s", qPrintable(arguments.join(' ')));
}

void Broker::start()
{
    m_process.start(BROKER_SCRIPT, {"run", folder()});
    if (!m_process.waitForStarted()
        || !QTest::qWaitFor([this] { return loopback::accepts(m_port); }, 10000))
        qFatal("the broker does not start");
}

void Broker::stop()
{
    freeze(false);
    m_process.kill();
    m_process.waitForFinished();
}

void Broker::freeze(bool frozen)
{
    if (m_process.processId() > 0)
        kill(pid_t(m_process.processId()), frozen ? SIGSTOP : SIGCONT);
}

void Broker::encrypt(const QString &certificate, const QString &key)
{
    stop();
    m_port = loopback::freePort();
    m_encrypted = true;
    command({"tls", folder(), certificate, key, QString::number(m_port), "127.0.0.1"});
    start();
}

links::BrokerAddress Broker::as(const QString &user) const
{
    links::BrokerAddress address;
    address.host = QStringLiteral("127.0.0.1");
    address.port = m_port;
    address.encrypted = m_encrypted;
    address.user = user;
    address.password = backwards(user);
    return address;
}
