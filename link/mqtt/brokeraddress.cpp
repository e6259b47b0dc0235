#include "link/mqtt/brokeraddress.h"

#include <QMessageAuthenticationCode>
#include <QRegularExpression>
#include <QUrl>

#include "link/protocol/protocol.h"

namespace welmo::links {

namespace {

constexpr int plainPort = 1883;
constexpr int encryptedPort = 8883;

QString complaintAbout(const QUrl &url, const QString &cell)
{
    if (!url.isValid() || url.host().isEmpty()
        || (url.scheme() != QLatin1String("mqtt") && url.scheme() != QLatin1String("mqtts")))
        return QStringLiteral("'%1' is no address such as mqtts://USER@HOST:PORT/CELL");
    if (!url.userName().isEmpty() && !protocol::isName(url.userName()))
        return QStringLiteral("'%1' names a user that no cell can know");
    if (!cell.isEmpty() && !protocol::isName(cell))
        return QStringLiteral("'%1' names a cell of other characters than A-Z a-z 0-9 . _ -");
    return {};
}

// One address for each of its hosts.
QStringList separate(const QString &text)
{
    static const QRegularExpression parts(QStringLiteral("^(\\w+://(?:[^/@]*@)?)([^/]*)(.*)$"),
                                          QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = parts.match(text);
    QStringList addresses;
    for (const QString &place : match.captured(2).split(QLatin1Char(',')))
        addresses.append(match.captured(1) + place + match.captured(3));
    return match.hasMatch() ? addresses : QStringList(text);
}

QString parseOne(const QString &text, BrokerAddress *address, QString *cell)
{
    const QUrl url(text, QUrl::StrictMode);
    const QString path = url.path().mid(1);
    QString complaint = complaintAbout(url, path);
    if (!complaint.isEmpty())
        return complaint.arg(url.toDisplayString(QUrl::RemovePassword));
    address->encrypted = url.scheme() == QLatin1String("mqtts");
    address->host = url.host();
    address->port = url.port(address->encrypted ? encryptedPort : plainPort);
    address->user = url.userName();
    address->password =
        url.password().isEmpty() ? qEnvironmentVariable("WELMO_BROKER_PASSWORD") : url.password();
    address->caFile = qEnvironmentVariable("WELMO_BROKER_CA");
    if (!path.isEmpty())
        *cell = path;
    if (address->encrypted || address->isLoopback())
        return {};
    return QStringLiteral("%1 is another machine: it is reached by mqtts:// only")
        .arg(address->host);
}

} // namespace

bool BrokerAddress::isLoopback() const
{
    static const QRegularExpression numbers(QStringLiteral("^127(\\.\\d{1,3}){3}$"));
    return host == QLatin1String("localhost") || host == QLatin1String("::1")
        || numbers.match(host).hasMatch(); // a name such as 127.example.org is not this machine
}

void BrokerAddress::take(const QPair<QString, int> &place)
{
    host = place.first;
    port = place.second;
}

BrokerAddress BrokerAddress::at(int number) const
{
    BrokerAddress one = *this;
    one.standbys.clear();
    if (number > 0)
        one.take(standbys.at(number - 1));
    return one;
}

QString parseAddress(const QString &text, BrokerAddress *address, QString *cell)
{
    QVector<QPair<QString, int>> places;
    for (const QString &one : separate(text)) {
        const QString complaint = parseOne(one, address, cell);
        if (!complaint.isEmpty())
            return complaint;
        places.append({address->host, address->port});
    }
    address->take(places.takeFirst());
    address->standbys = places;
    return {};
}

QString clientIdFor(const BrokerAddress &address, const QString &name)
{
    const QByteArray secret = QMessageAuthenticationCode::hash(
        name.toUtf8(), address.password.toUtf8(), QCryptographicHash::Sha256);
    return name + QLatin1Char('-') + QString::fromLatin1(secret.toHex().left(32));
}

} // namespace welmo::links
