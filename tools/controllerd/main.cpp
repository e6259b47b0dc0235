#include <QCoreApplication>
#include <cstdio>

#include "controller/core/backup.h"
#include "controller/core/repair.h"
#include "link/mqtt/cellservice.h"
#include "tools/controllerd/options.h"
#include "tools/controllerd/recording.h"
#include "tools/service/signals.h"

namespace {

constexpr int couldNotStart = 2;

void say(const QString &line)
{
    std::fprintf(stderr, "controllerd: %s\n", qPrintable(line));
}

/// Backs up, restores or repairs the store; returns the exit status.
int tendStore(const controllerd::Options &options)
{
    const QString file = welmo::links::ControllerRunner::storeIn(options.dataFolder);
    if (options.task == controllerd::Options::Task::Repair) {
        QStringList lines;
        const bool good = welmo::controller::repair(file, options.backup, &lines);
        for (const QString &line : qAsConst(lines))
            say(line);
        return good ? 0 : couldNotStart;
    }
    const QString problem = options.task == controllerd::Options::Task::BackUp
        ? welmo::controller::backUp(file, options.backup)
        : welmo::controller::restore(file, options.backup);
    if (!problem.isEmpty())
        say(problem);
    return problem.isEmpty() ? 0 : couldNotStart;
}

/// Reads the users' roles again; a file that cannot be used changes nothing.
void reread(const QString &usersFile, welmo::links::CellService *service)
{
    QString problem;
    const auto roles = welmo::links::Roles::read(usersFile, &problem);
    if (problem.isEmpty())
        service->setRoles(roles);
    else
        say(problem);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const auto options = controllerd::parseOptions(QCoreApplication::arguments());
    if (!options.help.isEmpty()) {
        std::fputs(qPrintable(options.help), stdout);
        return 0;
    }
    QString problem = options.error;
    if (problem.isEmpty() && options.task != controllerd::Options::Task::Serve)
        return tendStore(options);
    welmo::links::CellService::Options how{options.cell, options.broker, options.dataFolder, {}};
    how.example = options.example;
    if (problem.isEmpty())
        how.roles = welmo::links::Roles::read(options.usersFile, &problem);
    if (!problem.isEmpty()) {
        say(problem);
        return couldNotStart;
    }
    const service::Signals signalled;
    welmo::links::CellService cell(how);
    std::unique_ptr<controllerd::Demo> demo;
    if (!options.programs.isEmpty())
        demo = std::make_unique<controllerd::Demo>(&cell, options.programs);
    const controllerd::Recording recording(&cell, options.cell, options.dataFolder);
    QObject::connect(recording.recorder(), &controllerd::CellRecorder::problem, &cell, &say);
    QObject::connect(&cell, &welmo::links::CellService::problem, &say);
    QObject::connect(&cell, &welmo::links::CellService::online, &cell,
                     [&options] { say(QStringLiteral("%1 is online").arg(options.cell)); });
    QObject::connect(&signalled, &service::Signals::rereadWanted, &cell,
                     [&] { reread(options.usersFile, &cell); });
    QObject::connect(&signalled, &service::Signals::endWanted, &app, &QCoreApplication::quit);
    cell.start();
    return QCoreApplication::exec();
}
