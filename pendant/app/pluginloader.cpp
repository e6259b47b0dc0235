#include "pendant/app/pluginloader.h"

#include <QFileInfo>
#include <utility>

namespace welmo::pendant {

PluginLoader::PluginLoader(const QString &path)
    : m_library(path)
{ }

PluginLoader::~PluginLoader()
{
    // Removed before the library is unloaded: even the keys may be constants of the library.
    std::exchange(m_brought, {}).withdraw();
    if (m_library.isLoaded())
        m_library.unload();
}

bool PluginLoader::load()
{
    const Registrations before = Registrations::present();
    if (!m_library.load()) {
        m_error = reason();
        return false;
    }
    m_brought = Registrations::present().since(before);
    if (m_brought.modules.isEmpty())
        m_error = tr("%1: is not a module").arg(path());
    return !m_brought.modules.isEmpty();
}

// For a missing file the loader would name one of the other names that it tried.
QString PluginLoader::reason() const
{
    if (path().contains(QLatin1Char('/')) && !QFileInfo::exists(path()))
        return tr("%1: there is no such file").arg(path());
    return m_library.errorString();
}

} // namespace welmo::pendant
