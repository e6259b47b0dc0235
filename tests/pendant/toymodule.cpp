// A library with one module, which tells the application-wide tree that it was there.

#include "kelp/workspace.h"
#include "pando/bmodule.h"

namespace {

class Toy : public pando::BModule
{
public:
    using BModule::BModule;
    void init() override { m(QString())->set(this, QStringLiteral("toy.init"), true); }
};

const bool registered = [] {
    bfactory()->regist(QStringLiteral("toy"),
                       [](QObject *parent) -> pando::BModule * { return new Toy(parent); });
    kelp::pluginManager()->regist(QStringLiteral("toy"), [] { return 3; });
    kelp::versionManager().insert(QStringLiteral("toy.page"), [] { return 4; });
    return true;
}();

} // namespace
