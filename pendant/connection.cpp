#include "pendant/connection.h"

#include "link/embeddedlink.h"
#include "pendant/options.h"

namespace pendant {

Connection connectEmbedded(const Options &options)
{
    links::EmbeddedLink::Options how;
    how.dataFolder = options.dataFolder;
    auto link = std::make_unique<links::EmbeddedLink>(how);
    controller::Faults *faults = link->faults();
    return {std::move(link), faults};
}

} // namespace pendant
