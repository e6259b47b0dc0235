#pragma once

#include <QStringList>

#include "link/mqtt/brokeraddress.h"

namespace recorder {

struct Options
{
    welmo::links::BrokerAddress broker;
    QString dataFolder;
    QString error; ///< one line, if the arguments cannot be used
    QString help; ///< the help text, if it was asked for
};

Options parseOptions(const QStringList &arguments);

} // namespace recorder
