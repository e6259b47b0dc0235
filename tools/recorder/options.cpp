#include "tools/recorder/options.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace recorder {

namespace {

constexpr char description[] =
    "Takes what the cells of a plant hand over, their seams, alarms, changes and states, into one "
    "database, plant.db.\n\n"
    "It ends on SIGTERM or SIGINT. Exit status: 0 ended so, 2 it could not do what it was told.";

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
    return options->broker.user.isEmpty()
        ? QStringLiteral("--broker needs the account that 'broker recorder' made: mqtt://USER@HOST")
        : QString();
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
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions({broker, data});

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
