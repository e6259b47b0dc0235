#include "book/records/place.h"

#include <QDir>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QUrl>

namespace welmo::book {

namespace {

const QString scheme = QStringLiteral("postgresql");

// A server or a network that hangs is given up, and a recorder that hangs within a transaction
// does not hold up the others. Notices that a table is there already are nobody's business.
const QString manners =
    QStringLiteral("application_name=welmo;connect_timeout=5;keepalives_idle=5;"
                   "keepalives_interval=2;keepalives_count=3;tcp_user_timeout=10000;"
                   "options='-c client_min_messages=warning -c lock_timeout=5000"
                   " -c idle_in_transaction_session_timeout=30000'");

// In a connection's options a value stands in quotes.
QString quoted(QString value)
{
    value.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    return QLatin1Char('\'') + value.replace(QLatin1Char('\''), QLatin1String("\\'"))
        + QLatin1Char('\'');
}

QString trusted()
{
    const QString file = qEnvironmentVariable("WELMO_DATABASE_CA");
    return file.isEmpty() ? QStringLiteral("/etc/ssl/certs/ca-certificates.crt") : file;
}

} // namespace

bool Place::isAnotherMachine() const
{
    static const QRegularExpression here(
        QStringLiteral("^(|/.*|localhost|::1|127(\\.\\d{1,3}){3})$"));
    return isServer() && !here.match(host).hasMatch();
}

QString Place::text() const
{
    if (!isServer())
        return QDir::toNativeSeparators(file);
    QUrl url;
    url.setScheme(scheme);
    url.setUserName(user);
    url.setHost(host.startsWith(QLatin1Char('/')) ? QString() : host);
    url.setPort(port);
    url.setPath(QLatin1Char('/') + name);
    return url.toDisplayString();
}

void Place::describe(QSqlDatabase *database) const
{
    database->setHostName(host);
    database->setPort(port);
    database->setUserName(user);
    database->setPassword(password);
    database->setDatabaseName(name);
    database->setConnectOptions(isAnotherMachine()
                                    ? manners + QStringLiteral(";sslmode=verify-full;sslrootcert=")
                                        + quoted(trusted())
                                    : manners);
}

QString parsePlace(const QString &address, Place *place)
{
    const QUrl url(address, QUrl::StrictMode);
    if (!url.password().isEmpty())
        return QStringLiteral("'%1' must not contain the password: it is taken from "
                              "WELMO_DATABASE_PASSWORD")
            .arg(url.toDisplayString(QUrl::RemovePassword));
    const QString name = url.path().mid(1);
    if (!url.isValid() || url.scheme() != scheme || url.userName().isEmpty() || name.isEmpty()
        || name.contains(QLatin1Char('/')) || url.hasQuery() || url.hasFragment())
        return QStringLiteral("'%1' is no address such as postgresql://USER@HOST:PORT/NAME")
            .arg(address);
    *place = {};
    // Where libpq looks for a server's socket may also be another machine.
    place->host = url.host().isEmpty() ? qEnvironmentVariable("PGHOST") : url.host();
    place->port = url.port();
    place->user = url.userName();
    place->name = name;
    place->password = qEnvironmentVariable("WELMO_DATABASE_PASSWORD");
    return {};
}

} // namespace welmo::book
