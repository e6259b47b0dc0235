#include "pendant/app/registrations.h"

#include "kelp/registry.h"
#include "pando/bmodule.h"

namespace welmo::pendant {

namespace {

QStringList without(QStringList keys, const QStringList &others)
{
    for (const QString &key : others)
        keys.removeAll(key);
    return keys;
}

} // namespace

Registrations Registrations::present()
{
    return {bfactory()->keys(), kelp::pluginManager()->keys(), kelp::versionManager().keys()};
}

Registrations Registrations::since(const Registrations &before) const
{
    return {without(modules, before.modules), without(plugins, before.plugins),
            without(classes, before.classes)};
}

void Registrations::withdraw() const
{
    for (const QString &key : modules)
        bfactory()->unregist(key);
    for (const QString &key : plugins)
        kelp::pluginManager()->unregist(key);
    for (const QString &key : classes)
        kelp::versionManager().remove(key);
}

} // namespace welmo::pendant
