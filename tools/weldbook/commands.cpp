#include "tools/weldbook/commands.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <algorithm>

#include "book/plant/plantbook.h"
#include "book/records/seambook.h"
#include "book/report/pdf.h"
#include "book/report/tables.h"

namespace welmo::book {

namespace {

constexpr int wrongArguments = 2;
constexpr int wrongBook = 1;

struct Call
{
    QCommandLineParser parser;
    QStringList words; ///< the command and its arguments
    Filter filter;
    QIODevice *out = nullptr;
    QString problem;

    int complain(const QString &line, int status = wrongArguments)
    {
        problem = line;
        return status;
    }
};

void setUp(QCommandLineParser *parser)
{
    parser->setApplicationDescription(
        QStringLiteral("What was welded, out of a pendant's book, or a plant's.\n\n"
                       "  list            one line for each weld, newest first\n"
                       "  show ID         all that is known of one weld\n"
                       "  export          the records as a table\n"
                       "  report ID       a page on one weld, as PDF\n"
                       "  report          the welds of the day --from, as PDF\n"
                       "  verify          reads everything, and says what is damaged"));
    parser->addHelpOption();
    parser->addPositionalArgument(QStringLiteral("command"),
                                  QStringLiteral("list, show, export, report or verify"));
    parser->addOptions({
        {QStringLiteral("data"), QStringLiteral("The data folder of a pendant or a recorder."),
         QStringLiteral("DIR")},
        {QStringLiteral("database"),
         QStringLiteral("A recorder's database at a PostgreSQL server instead: "
                        "postgresql://USER@HOST:PORT/NAME. The password is taken from "
                        "WELMO_DATABASE_PASSWORD."),
         QStringLiteral("URL")},
        {QStringLiteral("from"), QStringLiteral("Welds that began on this day or later."),
         QStringLiteral("YYYY-MM-DD")},
        {QStringLiteral("until"), QStringLiteral("Welds that began on this day or before."),
         QStringLiteral("YYYY-MM-DD")},
        {QStringLiteral("cell"), QStringLiteral("Welds of this cell."), QStringLiteral("NAME")},
        {QStringLiteral("program"), QStringLiteral("Welds of this program."),
         QStringLiteral("NAME")},
        {QStringLiteral("file"), QStringLiteral("Welds with this welding file."),
         QStringLiteral("NAME")},
        {QStringLiteral("verdict"), QStringLiteral("Welds found green, amber, red or none."),
         QStringLiteral("WORD")},
        {QStringLiteral("format"), QStringLiteral("csv (unless told) or json."),
         QStringLiteral("FORMAT"), QStringLiteral("csv")},
        {QStringLiteral("output"), QStringLiteral("Where to write; the terminal unless told."),
         QStringLiteral("FILE")},
    });
}

QString readDay(const QCommandLineParser &parser, const QString &option, int later, qint64 *time)
{
    if (!parser.isSet(option))
        return {};
    const QDate day = QDate::fromString(parser.value(option), Qt::ISODate);
    if (!day.isValid())
        return QStringLiteral("--%1: '%2' is no day: YYYY-MM-DD").arg(option, parser.value(option));
    *time = day.addDays(later).startOfDay().toMSecsSinceEpoch();
    return {};
}

QString readFilter(const QCommandLineParser &parser, Filter *filter)
{
    for (const QString &problem : {readDay(parser, QStringLiteral("from"), 0, &filter->from),
                                   readDay(parser, QStringLiteral("until"), 1, &filter->until)}) {
        if (!problem.isEmpty())
            return problem;
    }
    filter->cell = parser.value(QStringLiteral("cell"));
    filter->program = parser.value(QStringLiteral("program"));
    filter->file = parser.value(QStringLiteral("file"));
    if (!parser.isSet(QStringLiteral("verdict")))
        return {};
    const QString wanted = parser.value(QStringLiteral("verdict"));
    for (const Verdict verdict : {Verdict::None, Verdict::Green, Verdict::Amber, Verdict::Red}) {
        if (verdictWord(verdict) == wanted)
            filter->verdict = verdict;
    }
    return filter->verdict
        ? QString()
        : QStringLiteral("--verdict: '%1' is none of green, amber, red, none").arg(wanted);
}

int list(SeamBook &book, Call &call)
{
    for (const Seam &seam : book.list(call.filter, -1))
        call.out->write(QStringLiteral("%1  %2  %3  %4:%5  %6  %7 A  %8 V  %9 mm\n")
                            .arg(seam.id, 6)
                            .arg(seam.startedAt().toString(Qt::ISODate))
                            .arg(verdictWord(seam.verdict), -5)
                            .arg(seam.program.isEmpty() ? QStringLiteral("-") : seam.program)
                            .arg(seam.line)
                            .arg(seam.weldFile)
                            .arg(seam.current.mean, 0, 'f', 0)
                            .arg(seam.voltage.mean, 0, 'f', 1)
                            .arg(seam.length, 0, 'f', 0)
                            .toUtf8());
    return 0;
}

std::optional<Seam> wantedSeam(SeamBook &book, Call &call)
{
    const std::optional<Seam> seam = book.seam(call.words.value(1).toLongLong());
    if (!seam)
        call.complain(QStringLiteral("there is no weld '%1'").arg(call.words.value(1)));
    return seam;
}

int show(SeamBook &book, Call &call)
{
    const std::optional<Seam> seam = wantedSeam(book, call);
    if (!seam)
        return wrongArguments;
    for (const ReportValue &value : reportValues(*seam)) {
        if (!value.value.isNull())
            call.out->write(QStringLiteral("%1 %2 %3")
                                .arg(value.name, -16)
                                .arg(value.value.toString(), value.unit)
                                .trimmed()
                                .toUtf8()
                            + '\n');
    }
    return 0;
}

int exportTable(SeamBook &book, Call &call)
{
    const QString format = call.parser.value(QStringLiteral("format"));
    if (format != QLatin1String("csv") && format != QLatin1String("json"))
        return call.complain(QStringLiteral("--format: '%1' is neither csv nor json").arg(format));
    QFile file(call.parser.value(QStringLiteral("output")));
    if (!file.fileName().isEmpty() && !file.open(QIODevice::WriteOnly))
        return call.complain(QStringLiteral("%1: %2").arg(file.fileName(), file.errorString()));
    const auto as = format == QLatin1String("csv") ? TableFormat::Csv : TableFormat::Json;
    QIODevice *out = file.isOpen() ? &file : call.out;
    if (writeTable(book, call.filter, as, out, &call.problem) && (!file.isOpen() || file.flush()))
        return 0;
    return call.complain(call.problem.isEmpty() ? file.errorString() : call.problem, wrongBook);
}

int report(SeamBook &book, Call &call)
{
    const QString file = call.parser.value(QStringLiteral("output"));
    if (file.isEmpty())
        return call.complain(QStringLiteral("report needs --output FILE"));
    if (call.words.size() > 1) {
        const std::optional<Seam> seam = wantedSeam(book, call);
        return seam
                && writeSeamPdf(file, *seam, book.course(seam->id), book.limits(seam->weldFile),
                                &call.problem)
            ? 0
            : wrongArguments;
    }
    if (call.filter.from == 0)
        return call.complain(QStringLiteral("report needs a weld's number, or a day with --from"));
    const QDate day = QDateTime::fromMSecsSinceEpoch(call.filter.from).date();
    call.filter.until = day.addDays(1).startOfDay().toMSecsSinceEpoch();
    return writeDayPdf(file, day, book.list(call.filter, -1), &call.problem) ? 0 : wrongArguments;
}

int verify(SeamBook &book, Call &call)
{
    // A server watches over its own files.
    const QString state = book.database().isServer()
        ? QStringLiteral("ok")
        : book.database().value(QStringLiteral("PRAGMA integrity_check(1)")).toString();
    if (state != QLatin1String("ok"))
        return call.complain(QStringLiteral("the book is damaged: %1").arg(state.simplified()),
                             wrongBook);
    int records = 0;
    for (const Seam &seam : book.list(call.filter, -1)) {
        ++records;
        const Course course = book.course(seam.id);
        if (seam.arcTime > 0 && course.samples.isEmpty())
            return call.complain(
                QStringLiteral("the course of weld %1 cannot be read").arg(seam.id), wrongBook);
    }
    call.out->write(QStringLiteral("%1 records, nothing is damaged\n").arg(records).toUtf8());
    return 0;
}

struct Command
{
    const char *name;
    int (*run)(SeamBook &book, Call &call);
    int most; ///< the most arguments
};

constexpr Command commands[] = {
    {"list", list, 1},     {"show", show, 2},     {"export", exportTable, 1},
    {"report", report, 2}, {"verify", verify, 1},
};

int open(const Command &command, Call &call)
{
    const QString folder = call.parser.value(QStringLiteral("data"));
    const QString address = call.parser.value(QStringLiteral("database"));
    if (folder.isEmpty() == address.isEmpty())
        return call.complain(QStringLiteral("needs either --data DIR or --database URL"));
    const QDir data(folder);
    const bool isPlant = !address.isEmpty() || data.exists(QStringLiteral("plant.db"));
    Place place = data.filePath(isPlant ? QStringLiteral("plant.db")
                                        : QStringLiteral("weldbook/weldbook.db"));
    if (!address.isEmpty())
        call.problem = parsePlace(address, &place);
    if (!call.problem.isEmpty())
        return wrongArguments;
    auto database = Database::open(place, Database::ReadOnly, &call.problem,
                                   isPlant ? plantSchema() : weldBookSchema());
    if (!database)
        return wrongBook;
    SeamBook book(std::move(database));
    const int status = command.run(book, call);
    if (book.errorText().isEmpty())
        return status;
    return call.complain(
        QStringLiteral("%1: cannot be read (%2)").arg(place.text(), book.errorText()), wrongBook);
}

int run(Call &call)
{
    const QString word = call.words.value(0);
    const auto *command =
        std::find_if(std::begin(commands), std::end(commands),
                     [&](const Command &one) { return word == QLatin1String(one.name); });
    if (command == std::end(commands))
        return call.complain(word.isEmpty()
                                 ? QStringLiteral("list, show, export, report or verify?")
                                 : QStringLiteral("unknown command '%1'").arg(word));
    if (call.words.size() > command->most)
        return call.complain(QStringLiteral("unexpected argument '%1'").arg(call.words.last()));
    const QString wrong = readFilter(call.parser, &call.filter);
    return wrong.isEmpty() ? open(*command, call) : call.complain(wrong);
}

} // namespace

int runCommand(const QStringList &arguments, QIODevice *out, QString *problem)
{
    Call call;
    call.out = out;
    setUp(&call.parser);
    int status = 0;
    if (!call.parser.parse(arguments))
        status = call.complain(call.parser.errorText());
    else if (call.parser.isSet(QStringLiteral("help")))
        out->write(call.parser.helpText().toUtf8());
    else {
        call.words = call.parser.positionalArguments();
        status = run(call);
    }
    *problem = call.problem;
    return status;
}

} // namespace welmo::book
