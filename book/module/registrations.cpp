// What the host finds when the library is loaded, before any module exists.

#include <kelp/registry.h>

#include "book/module/weldbook.h"

namespace {

constexpr int pluginNumber = 1;

bool registerAll()
{
    bfactory()->regist(QStringLiteral("weldbook"),
                       [](QObject *parent) -> pando::BModule * { return new WeldBook(parent); });
    kelp::pluginManager()->regist(QStringLiteral("weldbook"), [] { return pluginNumber; });
    kelp::versionManager().insert(QStringLiteral("weldbook.page"), [] { return 1; });
    return true;
}

const bool registered = registerAll();

} // namespace
