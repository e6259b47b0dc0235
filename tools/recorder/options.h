#pragma once

#include <QStringList>
#include <optional>

#include "book/records/place.h"
#include "link/mqtt/brokeraddress.h"
#include "tools/plantpage/server.h"

namespace recorder {

struct Options
{
    welmo::links::BrokerAddress broker;
    welmo::book::Place book; ///< where it is
    int keepDays = 90; ///< after which a seam's course is thinned
    std::optional<plantpage::Server::Options> page; ///< if it is wanted
    QString error; ///< one line, if the arguments cannot be used
    QString help; ///< the help text, if it was asked for
};

Options parseOptions(const QStringList &arguments);

} // namespace recorder
