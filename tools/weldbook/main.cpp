// The weld book on the command line, from a pendant's data folder.

#include <QFile>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <algorithm>
#include <cstdio>
#include <memory>

#include "tools/weldbook/commands.h"

namespace {

// A page needs fonts but no display; other commands need neither.
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char *argv[])
{
    const bool paints = std::any_of(argv, argv + argc,
                                    [](const char *word) { return qstrcmp(word, "report") == 0; });
    if (!paints)
        return std::make_unique<QCoreApplication>(argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt warns that there is no folder of a session, which a page does not need.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char *argv[])
{
    const auto app = makeApplication(argc, argv);
    QFile out;
    out.open(stdout, QIODevice::WriteOnly);
    QString problem;
    const int status = welmo::book::runCommand(QCoreApplication::arguments(), &out, &problem);
    if (!problem.isEmpty())
        std::fprintf(stderr, "weldbook: %s\n", qPrintable(problem));
    return status;
}
