#pragma once

#include <QStringList>

#include "link/mqtt/brokeraddress.h"

namespace controllerd {

struct Options
{
    enum class Task { Serve, BackUp, Restore, Repair };

    Task task = Task::Serve;
    QString backup; ///< the file to write or to read; for a repair it may be empty
    QString cell;
    welmo::links::BrokerAddress broker;
    QString dataFolder;
    QString usersFile;
    QString error; ///< one line when the arguments cannot be used
    QString help; ///< the help text when that was asked for
};

Options parseOptions(const QStringList &arguments);

} // namespace controllerd
