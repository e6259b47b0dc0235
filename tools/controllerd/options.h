#pragma once

#include <QStringList>

#include "link/brokeraddress.h"

namespace controllerd {

struct Options
{
    QString cell;
    links::BrokerAddress broker;
    QString dataFolder;
    QString usersFile;
    QString error; ///< one line when the arguments cannot be used
    QString help; ///< the help text when that was asked for
};

Options parseOptions(const QStringList &arguments);

} // namespace controllerd
