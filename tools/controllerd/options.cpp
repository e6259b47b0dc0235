#include "tools/controllerd/options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "link/protocol/protocol.h"

namespace controllerd {

namespace {

constexpr char description[] =
    "The virtual robot controller as a service: one welding cell behind an MQTT 5 broker.\n\n"
    "With \"backup FILE\" it copies what the folder keeps to a new file, while a cell is at work "
    "or not; with \"restore FILE\" it puts such a file in place, and what was there aside. With "
    "\"repair\" it writes damaged entries anew, from the audit or from such a FILE.\n\n"
    "On SIGHUP it reads the users anew. It ends on SIGTERM or SIGINT. Exit status: 0 ended so, 2 "
    "it could not do what it was told.";

QString complaintAboutTask(const QStringList &words, Options *options)
{
    if (words.isEmpty())
        return {};
    static const QHash<QString, Options::Task> tasks{
        {QStringLiteral("backup"), Options::Task::BackUp},
        {QStringLiteral("restore"), Options::Task::Restore},
        {QStringLiteral("repair"), Options::Task::Repair}};
    const auto task = tasks.constFind(words.first());
    if (task == tasks.constEnd())
        return QStringLiteral("unexpected argument '%1'").arg(words.first());
    if (words.size() > 2 || (words.size() == 1 && *task != Options::Task::Repair))
        return QStringLiteral("%1 needs one file").arg(words.first());
    options->task = *task;
    options->backup = words.value(1);
    return {};
}

QString readPrograms(const QStringList &files, Options *options)
{
    for (const QString &name : files) {
        QFile file(name);
        if (!file.open(QFile::ReadOnly))
            return QStringLiteral("%1: %2").arg(name, file.errorString());
        options->programs.append({QFileInfo(name).fileName(), QString::fromUtf8(file.readAll())});
    }
    return {};
}

QString complaintAbout(const QCommandLineParser &parser, Options *options)
{
    if (QString complaint = complaintAboutTask(parser.positionalArguments(), options);
        !complaint.isEmpty())
        return complaint;
    if (options->dataFolder.isEmpty() || !QFileInfo(options->dataFolder).isDir())
        return QStringLiteral("--data needs a folder that is there");
    if (options->task != Options::Task::Serve)
        return {};
    if (!welmo::links::protocol::isName(options->cell))
        return QStringLiteral("--cell needs a name of A-Z a-z 0-9 . _ -");
    QString path;
    const QString complaint =
        welmo::links::parseAddress(parser.value(QStringLiteral("broker")), &options->broker, &path);
    if (complaint.isEmpty() && !path.isEmpty())
        return QStringLiteral("--broker takes no cell");
    // A cell's user at the broker has the cell's name.
    if (options->broker.user.isEmpty() && !options->broker.password.isEmpty())
        options->broker.user = options->cell;
    return complaint.isEmpty() ? readPrograms(parser.values(QStringLiteral("weld")), options)
                               : complaint;
}

} // namespace

Options parseOptions(const QStringList &arguments)
{
    const QCommandLineOption cell(QStringLiteral("cell"),
                                  QStringLiteral("The cell's name, and its account at the broker."),
                                  QStringLiteral("NAME"));
    const QCommandLineOption broker(
        QStringLiteral("broker"),
        QStringLiteral(
            "The broker: mqtt://HOST:PORT on this machine, mqtts:// elsewhere. The password "
            "is taken from WELMO_BROKER_PASSWORD, trusted certificates from the file "
            "WELMO_BROKER_CA."),
        QStringLiteral("URL"), QStringLiteral("mqtt://127.0.0.1:1883"));
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Folder for everything that is kept."),
                                  QStringLiteral("DIR"));
    const QCommandLineOption users(
        QStringLiteral("users"),
        QStringLiteral("File of lines 'NAME ROLE', with the roles viewer, operator, programmer, "
                       "administrator; DIR/users unless told. Who is not in it may do nothing."),
        QStringLiteral("FILE"));
    const QCommandLineOption example(
        QStringLiteral("example"),
        QStringLiteral("A cell without parameter files gets those of the example programs."));
    const QCommandLineOption weld(
        QStringLiteral("weld"),
        QStringLiteral("For trying out: the cell runs this program by itself, in turn with others, "
                       "and now and then something fails."),
        QStringLiteral("FILE"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions({cell, broker, data, users, example, weld});
    parser.addPositionalArgument(QStringLiteral("backup|restore|repair FILE"),
                                 QStringLiteral("Instead of serving."),
                                 QStringLiteral("[backup FILE | restore FILE | repair [FILE]]"));

    Options options;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
        return options;
    }
    if (parser.isSet(help)) {
        options.help = parser.helpText();
        return options;
    }
    options.cell = parser.value(cell);
    options.dataFolder = parser.value(data);
    options.example = parser.isSet(example);
    options.usersFile = parser.isSet(users)
        ? parser.value(users)
        : QDir(options.dataFolder).filePath(QStringLiteral("users"));
    options.error = complaintAbout(parser, &options);
    return options;
}

} // namespace controllerd
