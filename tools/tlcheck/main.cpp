#include <QCoreApplication>
#include <cstdio>

#include "tl/checker.h"
#include "tl/normalise.h"
#include "tl/programfile.h"
#include "tl/programtext.h"
#include "tools/tlcheck/options.h"
#include "tools/tlcheck/progressbar.h"
#include "tools/tlcheck/projectfile.h"
#include "tools/tlcheck/report.h"

using namespace welmo::tl;
using namespace welmo::tlcheck;
using welmo::tl::ProgramText;

namespace {

constexpr int couldNotRun = 2;

int complain(const QString &reason)
{
    std::fprintf(stderr, "tlcheck: %s\n", qPrintable(reason));
    return couldNotRun;
}

// Fixes the program and returns it as it is on the disk afterwards.
ProgramText fixed(const QString &file, const QByteArray &bytes, Report &report)
{
    ProgramText program(bytes);
    const int lines = normalise(program);
    if (lines == 0)
        return program;
    QString problem;
    if (!writeProgram(file, program.toBytes(), &problem)) {
        report.addError(file, problem);
        return ProgramText(bytes);
    }
    report.addRewritten(file, lines);
    return program;
}

void checkFile(const QString &file, const Options &options, const Checker &checker, Report &report)
{
    QString problem;
    const std::optional<QByteArray> bytes = readProgram(file, &problem);
    if (!bytes) {
        report.addError(file, problem);
        return;
    }
    const ProgramText program = options.fix ? fixed(file, *bytes, report) : ProgramText(*bytes);
    Findings findings;
    {
        ProgressBar bar(file, program.lineCount());
        findings = checker.check(program.lines(), [&bar](int done) { bar.show(done); });
    }
    report.add(file, findings);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const Options options = parseOptions(QCoreApplication::arguments());
    if (!options.help.isEmpty()) {
        std::fputs(qPrintable(options.help), stdout);
        return 0;
    }
    if (!options.error.isEmpty())
        return complain(options.error);
    std::optional<ProjectNames> project;
    if (options.mayBeBuiltIn && !hasProject(options.dataFolder)) {
        std::fprintf(stderr, "tlcheck: no project in %s; checking against the built-in one\n",
                     qPrintable(options.dataFolder));
        project = builtInProject();
    } else if (!options.dataFolder.isEmpty()) {
        QString problem;
        project = readProject(options.dataFolder, &problem);
        if (!project)
            return complain(problem);
    }
    const Checker checker(std::move(project));
    Report report(options.json);
    for (const QString &file : options.files)
        checkFile(file, options, checker, report);
    return report.finish();
}
