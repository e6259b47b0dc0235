#pragma once

#include <QSignalSpy>
#include <QTemporaryDir>
#include <memory>

#include "link/embeddedlink.h"
#include "tessa/host.h"

namespace bench {

inline void waitUntilConnected(XService *service)
{
    QSignalSpy changed(service, &XService::connectedChanged);
    while (!service->isConnected()) {
        if (!changed.wait())
            qFatal("the controller did not come up");
    }
}

/// A host and a controller whose files are on disk, connected.
class Cell
{
public:
    Cell()
        : host(tessa::HostOptions{folder.path()})
    {
        links::EmbeddedLink::Options options;
        options.dataFolder = folder.path();
        host.setLink(std::make_unique<links::EmbeddedLink>(options));
        waitUntilConnected(host.service());
    }

    XService *service() { return host.service(); }

    QTemporaryDir folder;
    tessa::Host host;
};

} // namespace bench
