#include <QCoreApplication>
#include <QDir>
#include <cstdio>

#include "tools/recorder/options.h"
#include "tools/recorder/recorder.h"
#include "tools/service/signals.h"

namespace {

constexpr int couldNotStart = 2;

void say(const QString &line)
{
    std::fprintf(stderr, "recorder: %s\n", qPrintable(line));
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const auto options = recorder::parseOptions(QCoreApplication::arguments());
    if (!options.help.isEmpty()) {
        std::fputs(qPrintable(options.help), stdout);
        return 0;
    }
    QString problem = options.error;
    auto book = problem.isEmpty() ? welmo::book::PlantBook::open(
                    QDir(options.dataFolder).filePath(QStringLiteral("plant.db")), &problem)
                                  : nullptr;
    if (!book) {
        say(problem);
        return couldNotStart;
    }
    const service::Signals signalled;
    recorder::Recorder recorder(options.broker, std::move(book));
    QObject::connect(&recorder, &recorder::Recorder::said, &say);
    QObject::connect(&signalled, &service::Signals::endWanted, &app, &QCoreApplication::quit);
    recorder.start();
    return QCoreApplication::exec();
}
