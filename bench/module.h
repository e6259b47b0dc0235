#pragma once

#include <QCoreApplication>
#include <QToolButton>

#include "bench/stage.h"
#include "pendant/app/pluginloader.h"
#include "support/formhost.h"

namespace bench {

/// A host with a centre area for pages, and after load() the package's library.
class Module
{
public:
    explicit Module(testsupport::FormHost::Link link)
        : host(link)
    {
        pando::frame().center->resize(pageSize);
    }

    /// Loads the library's file and runs its module; its page is then in the centre area.
    void load()
    {
        if (!m_loader.load() || !framework()->create(QStringLiteral("welmo")))
            qFatal("%s", qPrintable(m_loader.error()));
        framework()->start();
        pando::frame().center->switchTo(QStringLiteral("welmo.page"));
    }

    QWidget *page() const { return pando::frame().center->currentWidget(); }
    QList<QToolButton *> buttons() const
    {
        return testsupport::child(page(), QStringLiteral("wgtNav"))->findChildren<QToolButton *>();
    }

private:
    pando::ModuleFramework *framework() { return host.host().helper()->framework(); }

    /// Deletes what the library left for deletion before its code is unloaded.
    struct Loader : welmo::pendant::PluginLoader
    {
        Loader()
            : PluginLoader(QStringLiteral(WELMO_MODULE))
        { }
        ~Loader() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    };

    Loader m_loader; // destroyed after the host, whose modules are code of the library

public:
    testsupport::FormHost host;
};

} // namespace bench
