#pragma once

#include <QStringList>

#include "link/mqtt/brokeraddress.h"
#include "tools/controllerd/demo.h"

namespace controllerd {

struct Options
{
    enum class Task { Serve, BackUp, Restore, Repair };

    Task task = Task::Serve;
    QString backup; ///< the file to write or to read; optional for a repair
    QString cell;
    welmo::links::BrokerAddress broker;
    QString dataFolder;
    QString usersFile;
    bool example = false;
    QVector<Demo::Program> programs; ///< that the cell runs by itself
    QString error; ///< one line, if the arguments cannot be used
    QString help; ///< the help text, if it was asked for
};

Options parseOptions(const QStringList &arguments);

} // namespace controllerd
