#include <QApplication>
#include <QCommandLineParser>
#include <functional>

#include "bench/bench.h"
#include "pendant/app/registrations.h"

namespace {

struct Theme
{
    const char *name;
    void (*run)(bench::Bench &bench);
};

constexpr Theme themes[] = {{"forms", bench::forms},     {"pages", bench::pages},
                            {"text", bench::text},       {"store", bench::store},
                            {"pendant", bench::pendant}, {"book", bench::book}};

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    // The forms are also linked into this program; the module must come from the library.
    welmo::pendant::Registrations::present().withdraw();

    QCommandLineParser parser;
    parser.setApplicationDescription("Measures the package against its floors.");
    parser.addHelpOption();
    parser.addPositionalArgument(
        "themes", "forms, pages, text, store, pendant, book; all when none.", "[themes...]");
    const QCommandLineOption quick("quick", "Each row only shows that it runs.");
    const QCommandLineOption markdown("markdown", "Print the table for the docs.");
    const QCommandLineOption filter("row", "Only rows whose name holds <text>.", "text");
    parser.addOptions({quick, markdown, filter});
    parser.process(app);

    const QStringList wanted = parser.positionalArguments();
    bench::Bench bench(parser.isSet(quick), parser.value(filter));
    for (const Theme &theme : themes) {
        if (wanted.isEmpty() || wanted.contains(theme.name))
            theme.run(bench);
    }
    QTextStream out(stdout);
    bench.table().print(
        out, parser.isSet(markdown) ? bench::Table::Form::Markdown : bench::Table::Form::Text);
    if (!bench.leftOut().isEmpty())
        out << "\nNot counted: " << bench.leftOut().join(QStringLiteral("; ")) << '\n';
    return 0;
}
