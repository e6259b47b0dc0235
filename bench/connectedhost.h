#pragma once

#include <QSignalSpy>
#include <QTemporaryDir>
#include <memory>

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

/// A host that is connected to a controller over any link.
class ConnectedHost
{
public:
    explicit ConnectedHost(std::unique_ptr<tessa::ControllerLink> link)
        : host(tessa::HostOptions{folder.path()})
    {
        host.setLink(std::move(link));
        waitUntilConnected(host.service());
    }

    XService *service() { return host.service(); }

    QTemporaryDir folder;
    tessa::Host host;
};

} // namespace bench
