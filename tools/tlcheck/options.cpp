#include "tools/tlcheck/options.h"

#include <QCommandLineParser>
#include <QStandardPaths>

namespace welmo::tlcheck {

namespace {

constexpr char description[] =
    "Checks welding programs: every line as the instruction's form would read it, the names\n"
    "that the lines use, and that what is switched on is switched off again.\n\n"
    "Exit status: 0 nothing found, 1 something found, 2 a file or the project could not be read\n"
    "or written.";

QString pendantFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/welmo");
}

QString complaintAbout(const Options &options, const QCommandLineParser &parser)
{
    if (options.files.isEmpty())
        return QStringLiteral("no file to check; tlcheck --help says more");
    if (parser.isSet(QStringLiteral("data")) && parser.isSet(QStringLiteral("no-references")))
        return QStringLiteral("--data and --no-references exclude each other");
    if (parser.isSet(QStringLiteral("data")) && options.dataFolder.isEmpty())
        return QStringLiteral("--data needs a folder");
    return {};
}

} // namespace

Options parseOptions(const QStringList &arguments)
{
    const QCommandLineOption data(
        QStringLiteral("data"),
        QStringLiteral("The pendant's data folder, whose project is looked into; "
                       "without one, the built-in project is."),
        QStringLiteral("DIR"), pendantFolder());
    const QCommandLineOption noReferences(QStringLiteral("no-references"),
                                          QStringLiteral("Look no names up; needs no project."));
    const QCommandLineOption fix(
        QStringLiteral("fix"),
        QStringLiteral("Rewrite lines in their normal form, values unchanged."));
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Write the findings as one JSON object."));
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions({data, noReferences, fix, json});
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("A program, as UTF-8 text."),
                                 QStringLiteral("FILE..."));

    Options options;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
        return options;
    }
    if (parser.isSet(help)) {
        options.help = parser.helpText();
        return options;
    }
    options.files = parser.positionalArguments();
    options.dataFolder = parser.isSet(noReferences) ? QString() : parser.value(data);
    options.mayBeBuiltIn = !parser.isSet(noReferences) && !parser.isSet(data);
    options.fix = parser.isSet(fix);
    options.json = parser.isSet(json);
    options.error = complaintAbout(options, parser);
    return options;
}

} // namespace welmo::tlcheck
