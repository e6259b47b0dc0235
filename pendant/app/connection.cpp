#include "pendant/app/connection.h"

#include "link/embedded/embeddedlink.h"
#include "link/mqtt/mqttlink.h"
#include "pendant/app/options.h"

namespace welmo::pendant {

namespace {

Connection connectEmbedded(const Options &options)
{
    links::EmbeddedLink::Options how;
    how.dataFolder = options.dataFolder;
    how.example = !options.isEmpty;
    auto link = std::make_unique<links::EmbeddedLink>(how);
    controller::Faults *faults = link->faults();
    return {std::move(link), faults};
}

Connection connectToCell(const QString &controller)
{
    links::MqttLink::Options how;
    links::parseAddress(controller, &how.address, &how.cell);
    return {std::make_unique<links::MqttLink>(how), nullptr};
}

} // namespace

Connection connectTo(const Options &options)
{
    return options.controller.isEmpty() ? connectEmbedded(options)
                                        : connectToCell(options.controller);
}

} // namespace welmo::pendant
