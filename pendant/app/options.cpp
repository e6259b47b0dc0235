#include "pendant/app/options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

#include "link/mqtt/brokeraddress.h"
#include "pendant/theme/appearance.h"

namespace welmo::pendant {

namespace {

QString defaultDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/welmo");
}

const QString noBook = QStringLiteral("none");

// The library's path relative to the program, the same as built and as installed; empty if it is
// not there.
QString besideProgram(const QString &library)
{
    return QFileInfo(QCoreApplication::applicationDirPath() + QStringLiteral("/../lib/welmo/")
                     + library)
        .canonicalFilePath();
}

// Beside the program, else wherever the system looks for libraries.
QString defaultModulePath()
{
    const QString beside = besideProgram(QStringLiteral("libwelmo.so"));
    return beside.isEmpty() ? QStringLiteral("libwelmo.so") : beside;
}

// The book is a package of its own that need not be installed.
QString defaultBookPath()
{
    const QString beside = besideProgram(QStringLiteral("libweldbook.so"));
    return beside.isEmpty() ? noBook : beside;
}

QString complaintAbout(const QString &controller)
{
    links::BrokerAddress address;
    QString cell;
    const QString complaint = links::parseAddress(controller, &address, &cell);
    return complaint.isEmpty() && cell.isEmpty()
        ? QStringLiteral("--controller needs a cell: mqtt://HOST:PORT/CELL")
        : complaint;
}

QString complaintAbout(const QCommandLineParser &parser, const Options &options)
{
    const QStringList unexpected = parser.positionalArguments();
    if (!unexpected.isEmpty())
        return QStringLiteral("unexpected argument '%1'").arg(unexpected.first());
    for (const QString &name : parser.optionNames()) {
        if (parser.value(name).isEmpty() && name != QLatin1String("help")
            && name != QLatin1String("version") && name != QLatin1String("empty"))
            return QStringLiteral("--%1 needs a value").arg(name);
    }
    if (!options.language.isEmpty() && !knownLanguages().contains(options.language))
        return QStringLiteral("unknown language '%1': en or zh_CN").arg(options.language);
    if (!options.theme.isEmpty() && !knownThemes().contains(options.theme)
        && !QFileInfo(options.theme).isFile())
        return QStringLiteral("unknown theme '%1': light, dark or a theme file").arg(options.theme);
    return options.controller.isEmpty() ? QString() : complaintAbout(options.controller);
}

} // namespace

QString pendantVersion()
{
    return QStringLiteral(WELMO_VERSION);
}

ParsedOptions parseOptions(const QStringList &arguments)
{
    const QCommandLineOption language(QStringLiteral("language"),
                                      QStringLiteral("Language of all texts: en or zh_CN."),
                                      QStringLiteral("NAME"));
    const QCommandLineOption theme(QStringLiteral("theme"),
                                   QStringLiteral("Colours: light, dark or a theme file."),
                                   QStringLiteral("THEME"));
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Folder for everything that is kept."),
                                  QStringLiteral("DIR"), defaultDataFolder());
    const QCommandLineOption module(QStringLiteral("module"),
                                    QStringLiteral("The welding package to load."),
                                    QStringLiteral("PATH"), defaultModulePath());
    const QCommandLineOption book(QStringLiteral("book"),
                                  QStringLiteral("The weld book to load beside it, or none."),
                                  QStringLiteral("PATH"), defaultBookPath());
    const QCommandLineOption controller(
        QStringLiteral("controller"),
        QStringLiteral(
            "A cell on the network, mqtts://USER@HOST:PORT/CELL, in place of the one in here. "
            "mqtt:// "
            "reaches this machine only; the password is taken from WELMO_BROKER_PASSWORD."),
        QStringLiteral("URL"));
    const QCommandLineOption empty(
        QStringLiteral("empty"),
        QStringLiteral("A new controller starts without the parameter files of the example."));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A robot pendant with the arc-welding package."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({language, theme, data, module, book, controller, empty});

    ParsedOptions parsed;
    if (!parser.parse(arguments)) {
        parsed.error = parser.errorText();
        return parsed;
    }
    if (parser.isSet(help))
        parsed.help = parser.helpText();
    else if (parser.isSet(version))
        parsed.help = QStringLiteral("welmo-pendant " WELMO_VERSION "\n");
    parsed.options = {parser.value(language), parser.value(theme),      parser.value(data),
                      parser.value(module),   parser.value(controller), parser.isSet(empty)};
    if (const QString path = parser.value(book); path != noBook)
        parsed.options.bookPath = path;
    parsed.error = complaintAbout(parser, parsed.options);
    return parsed;
}

} // namespace welmo::pendant
