#pragma once

#include <QCoreApplication>
#include <QToolButton>

#include "bench/stage.h"
#include "pendant/app/pluginloader.h"
#include "support/formhost.h"

namespace bench {

/// A host with the place for pages, and the package's library in it once load() ran.
class Module
{
public:
    explicit Module(testsupport::FormHost::Link link)
        : host(link)
    {
        pando::frame().center->resize(pageSize);
    }

    /// From the library's file to the module that runs; the page is in its place then.
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

    /// What the library still has to be deleted must be gone before its code is.
    struct Loader : welmo::pendant::PluginLoader
    {
        Loader()
            : PluginLoader(QStringLiteral(WELMO_MODULE))
        { }
        ~Loader() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    };

    Loader m_loader; // goes after the host, whose modules are its code

public:
    testsupport::FormHost host;
};

} // namespace bench
