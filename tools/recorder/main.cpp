#include <QCoreApplication>
#include <cstdio>

#include "tools/plantpage/page.h"
#include "tools/recorder/options.h"
#include "tools/recorder/recorder.h"
#include "tools/service/signals.h"

using welmo::book::PlantBook;

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
    auto book = problem.isEmpty() ? PlantBook::open(options.book, &problem) : nullptr;
    plantpage::Page page(options.broker, [place = options.book](QString *reason) {
        return PlantBook::open(place, reason, welmo::book::Database::ReadOnly);
    });
    if (book && options.page)
        problem = page.start(*options.page);
    if (!problem.isEmpty()) {
        say(problem);
        return couldNotStart;
    }
    const service::Signals signalled;
    recorder::Recorder recorder(options.broker, std::move(book), options.keepDays);
    QObject::connect(&recorder, &recorder::Recorder::said, &say);
    QObject::connect(&signalled, &service::Signals::endWanted, &app, &QCoreApplication::quit);
    recorder.start();
    if (options.page)
        say(QStringLiteral("the plant is at http://%1:%2/")
                .arg(options.page->host)
                .arg(page.port()));
    return QCoreApplication::exec();
}
