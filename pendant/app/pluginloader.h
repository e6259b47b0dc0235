#pragma once

#include <QCoreApplication>
#include <QLibrary>
#include <QString>
#include <QStringList>

#include "pendant/app/registrations.h"

namespace welmo::pendant {

/// Loads a library of modules and knows which modules it brought. Unloads it when it goes; by then
/// nothing that the library made may be alive.
class PluginLoader
{
    Q_DECLARE_TR_FUNCTIONS(welmo::pendant::PluginLoader)
public:
    explicit PluginLoader(const QString &path);
    ~PluginLoader();
    PluginLoader(const PluginLoader &) = delete;
    PluginLoader &operator=(const PluginLoader &) = delete;

    /// False with a line in error() when there is no such library, or when it is not a module.
    bool load();
    QString path() const { return m_library.fileName(); }
    QString error() const { return m_error; }
    /// The keys in the module factory that the library registered.
    QStringList modules() const { return m_brought.modules; }

private:
    QString reason() const;

    QLibrary m_library;
    QString m_error;
    Registrations m_brought;
};

} // namespace welmo::pendant
