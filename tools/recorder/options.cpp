#include "tools/recorder/options.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace recorder {

namespace {

const QString chartScript =
    QStringLiteral("/usr/share/javascript/chart.js/chart.min.js"); // of the package libjs-chart.js

constexpr char description[] =
    "Takes what the cells of a plant hand over, their seams, alarms, changes and states, into one "
    "database, plant.db.\n\n"
    "It ends on SIGTERM or SIGINT. Exit status: 0 ended so, 2 it could not do what it was told.";

QString complaintAboutPage(const QString &address, Options *options)
{
    if (address.isEmpty())
        return {};
    welmo::links::BrokerAddress place;
    place.host = address.section(QLatin1Char(':'), 0, -2);
    bool isNumber = false;
    place.port = address.section(QLatin1Char(':'), -1).toInt(&isNumber);
    if (!isNumber || place.port < 0 || place.port > 65535 || !place.isLoopback())
        return QStringLiteral("--http needs an address of this machine such as 127.0.0.1:8080; for "
                              "others put a server that encrypts before it");
    if (!QFileInfo::exists(chartScript))
        return QStringLiteral("--http needs %1, which the package libjs-chart.js brings")
            .arg(chartScript);
    options->page = {place.host, place.port, chartScript};
    return {};
}

QString complaintAbout(const QCommandLineParser &parser, Options *options)
{
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().first());
    if (options->dataFolder.isEmpty() || !QFileInfo(options->dataFolder).isDir())
        return QStringLiteral("--data needs a folder that is there");
    if (!parser.isSet(QStringLiteral("broker")))
        return QStringLiteral("--broker needs an address such as mqtts://USER@HOST:PORT");
    QString cell;
    const QString complaint =
        welmo::links::parseAddress(parser.value(QStringLiteral("broker")), &options->broker, &cell);
    if (!complaint.isEmpty())
        return complaint;
    if (!cell.isEmpty())
        return QStringLiteral("--broker takes no cell");
    if (options->broker.user.isEmpty())
        return QStringLiteral(
            "--broker needs the account that 'broker recorder' made: mqtt://USER@HOST");
    return complaintAboutPage(parser.value(QStringLiteral("http")), options);
}

} // namespace

Options parseOptions(const QStringList &arguments)
{
    const QCommandLineOption broker(
        QStringLiteral("broker"),
        QStringLiteral("The brokers, all of which are followed: mqtt://USER@HOST:PORT on this "
                       "machine, mqtts:// elsewhere. The password is taken from "
                       "WELMO_BROKER_PASSWORD, trusted certificates from the file "
                       "WELMO_BROKER_CA."),
        QStringLiteral("URL"));
    const QCommandLineOption data(QStringLiteral("data"), QStringLiteral("Folder of the database."),
                                  QStringLiteral("DIR"));
    const QCommandLineOption http(
        QStringLiteral("http"),
        QStringLiteral("Shows the plant to browsers, at an address of this machine; port 0 is any that "
                       "is free. Who has an account at the broker can sign in."),
        QStringLiteral("HOST:PORT"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions({broker, data, http});

    Options options;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
    } else if (parser.isSet(help)) {
        options.help = parser.helpText();
    } else {
        options.dataFolder = parser.value(data);
        options.error = complaintAbout(parser, &options);
    }
    return options;
}

} // namespace recorder
