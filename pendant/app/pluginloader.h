#pragma once

#include <QCoreApplication>
#include <QLibrary>
#include <QString>
#include <QStringList>

#include "pendant/app/registrations.h"

namespace welmo::pendant {

/// Loads a library of modules and records which modules it registered. Its destructor unloads the
/// library; until then all objects that the library made must be deleted.
class PluginLoader
{
    Q_DECLARE_TR_FUNCTIONS(welmo::pendant::PluginLoader)
public:
    explicit PluginLoader(const QString &path);
    ~PluginLoader();
    PluginLoader(const PluginLoader &) = delete;
    PluginLoader &operator=(const PluginLoader &) = delete;

    /// False, with a line in error(), if there is no such library or it is not a module.
    bool load();
    QString path() const { return m_library.fileName(); }
    QString error() const { return m_error; }
    /// The keys that the library registered in the module factory.
    QStringList modules() const { return m_brought.modules; }

private:
    QString reason() const;

    QLibrary m_library;
    QString m_error;
    Registrations m_brought;
};

} // namespace welmo::pendant
