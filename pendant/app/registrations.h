#pragma once

#include <QStringList>

namespace welmo::pendant {

/// The keys under which libraries have entered something with the host.
struct Registrations
{
    QStringList modules; ///< in the module factory
    QStringList plugins; ///< in the plug-in registry
    QStringList classes; ///< in the class-version registry

    static Registrations present();
    /// What is here and not in @p before.
    Registrations since(const Registrations &before) const;
    /// Removes these keys from the host's registries. What stands there is code of a library, so
    /// it has to go before the library does.
    void withdraw() const;
};

} // namespace welmo::pendant
