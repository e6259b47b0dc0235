#pragma once

#include <QStringList>

namespace welmo::pendant {

/// The keys under which libraries have registered something with the host.
struct Registrations
{
    QStringList modules; ///< in the module factory
    QStringList plugins; ///< in the plug-in registry
    QStringList classes; ///< in the class-version registry

    static Registrations present();
    /// The keys that are not in @p before.
    Registrations since(const Registrations &before) const;
    /// Removes these keys from the host's registries. The entries are code of a library, so they
    /// must be removed before it is unloaded.
    void withdraw() const;
};

} // namespace welmo::pendant
