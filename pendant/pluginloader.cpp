#include "pendant/pluginloader.h"

#include <QCoreApplication>
#include <utility>

namespace pendant {

PluginLoader::PluginLoader(const QString &path)
    : m_library(path)
{ }

PluginLoader::~PluginLoader()
{
    // The keys, too, may point into the library's own constants.
    std::exchange(m_brought, {}).withdraw();
    if (m_library.isLoaded())
        m_library.unload();
}

bool PluginLoader::load()
{
    const Registrations before = Registrations::present();
    if (!m_library.load()) {
        m_error = m_library.errorString();
        return false;
    }
    m_brought = Registrations::present().since(before);
    if (m_brought.modules.isEmpty())
        m_error =
            QCoreApplication::translate("pendant::PluginLoader", "%1: is not a module").arg(path());
    return !m_brought.modules.isEmpty();
}

} // namespace pendant
