#include "pendant/app/pluginloader.h"

#include <QFileInfo>
#include <utility>

namespace welmo::pendant {

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
        m_error = reason();
        return false;
    }
    m_brought = Registrations::present().since(before);
    if (m_brought.modules.isEmpty())
        m_error = tr("%1: is not a module").arg(path());
    return !m_brought.modules.isEmpty();
}

// For a file that is not there the loader names the last of the names it made up itself.
QString PluginLoader::reason() const
{
    if (path().contains(QLatin1Char('/')) && !QFileInfo::exists(path()))
        return tr("%1: there is no such file").arg(path());
    return m_library.errorString();
}

} // namespace welmo::pendant
