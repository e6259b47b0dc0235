#include "tools/recorder/options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

namespace recorder {

namespace {

constexpr int mostDays = 36500;

const QString chartScript =
    QStringLiteral("/usr/share/javascript/chart.js/chart.min.js"); // of the package libjs-chart.js

constexpr char description[] =
    "Takes what the cells of a plant hand over, their seams, alarms, changes and states, into one "
    "database.\n\n"
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

QString complaintAboutBook(const QCommandLineParser &parser, Options *options)
{
    const QString folder = parser.value(QStringLiteral("data"));
    const QString address = parser.value(QStringLiteral("database"));
    if (folder.isEmpty() == address.isEmpty())
        return QStringLiteral("either --data DIR or --database URL says where the database is");
    if (!address.isEmpty())
        return welmo::book::parsePlace(address, &options->book);
    if (!QFileInfo(folder).isDir())
        return QStringLiteral("--data needs a folder that is there");
    options->book = QDir(folder).filePath(QStringLiteral("plant.db"));
    return {};
}

QString complaintAboutDays(const QString &days, Options *options)
{
    bool isNumber = true;
    if (!days.isEmpty())
        options->keepDays = days.toInt(&isNumber);
    return isNumber && options->keepDays > 0 && options->keepDays <= mostDays
        ? QString()
        : QStringLiteral("--keep-courses needs a number of days from 1 to %1").arg(mostDays);
}

QString complaintAbout(const QCommandLineParser &parser, Options *options)
{
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument '%1'")
            .arg(parser.positionalArguments().constFirst());
    if (const QString complaint = complaintAboutBook(parser, options); !complaint.isEmpty())
        return complaint;
    const QString days = parser.value(QStringLiteral("keep-courses"));
    if (const QString complaint = complaintAboutDays(days, options); !complaint.isEmpty())
        return complaint;
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
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Folder of the database plant.db."),
                                  QStringLiteral("DIR"));
    const QCommandLineOption database(
        QStringLiteral("database"),
        QStringLiteral("The database at a PostgreSQL server instead: "
                       "postgresql://USER@HOST:PORT/NAME, without HOST by its socket. The password "
                       "is taken from WELMO_DATABASE_PASSWORD. Another machine must show a "
                       "certificate for HOST, trusted by the system or WELMO_DATABASE_CA."),
        QStringLiteral("URL"));
    const QCommandLineOption http(
        QStringLiteral("http"),
        QStringLiteral(
            "Shows the plant to browsers, at an address of this machine; port 0 is any that "
            "is free. Who has an account at the broker can sign in."),
        QStringLiteral("HOST:PORT"));
    const QCommandLineOption keep(
        QStringLiteral("keep-courses"),
        QStringLiteral(
            "After so many days, %1 unless told, a seam's course is thinned to one sample "
            "a second. Nothing else is removed.")
            .arg(Options().keepDays),
        QStringLiteral("DAYS"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions({broker, data, database, keep, http});

    Options options;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
    } else if (parser.isSet(help)) {
        options.help = parser.helpText();
    } else {
        options.error = complaintAbout(parser, &options);
    }
    return options;
}

} // namespace recorder
