#include <QApplication>
#include <cstdio>

#include "pendant/app/connection.h"
#include "pendant/app/options.h"
#include "pendant/app/pendantapp.h"

namespace {

// Reads the arguments before there is a QApplication, so that --help works without a display.
welmo::pendant::ParsedOptions readArguments(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    return welmo::pendant::parseOptions(QCoreApplication::arguments());
}

} // namespace

int main(int argc, char *argv[])
{
    const auto parsed = readArguments(argc, argv);
    if (!parsed.help.isEmpty()) {
        std::fputs(qPrintable(parsed.help), stdout);
        return 0;
    }
    if (!parsed.error.isEmpty()) {
        std::fprintf(stderr, "welmo-pendant: %s\n", qPrintable(parsed.error));
        return 2;
    }
    const QApplication app(argc, argv);
    welmo::pendant::PendantApp pendant(parsed.options, welmo::pendant::connectTo);
    pendant.start();
    return QApplication::exec();
}
