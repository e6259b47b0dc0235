#include <QApplication>
#include <cstdio>

#include "pendant/connection.h"
#include "pendant/keyrepeat.h"
#include "pendant/options.h"
#include "pendant/pendantapp.h"

namespace {

// Without a display there is no QApplication, yet there is an answer to --help.
pendant::ParsedOptions readArguments(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    return pendant::parseOptions(QCoreApplication::arguments());
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
    pendant::repeatWithoutReleases();
    pendant::PendantApp pendant(parsed.options, pendant::connectTo);
    pendant.start();
    return QApplication::exec();
}
