#include "pando/bmodule.h"

#include "kelp/workspace.h"

namespace pando {

BModule::BModule(QObject *parent)
    : QObject(parent)
    , m_mobj(kelp::EmptyModuleObject::instance())
{ }

BModule::~BModule()
{
    qDeleteAll(m_submodules);
}

void BModule::bindMobj(const QString &key)
{
    m_mobj = kelp::Workspace::current()->root()->make(key);
}

void BModule::bindMobjJson(const QString &key, const QString &templatePath, bool persistent)
{
    m_mobj = kelp::Workspace::current()->bindTree(key, templatePath, persistent);
}

void BModule::addSubmodule(BModule *module)
{
    // The list owns it from here; a QObject parent would delete it a second time.
    module->setParent(nullptr);
    m_submodules.append(module);
}

} // namespace pando

kelp::CreatorManager<pando::BModule *(QObject *)> *bfactory()
{
    static kelp::CreatorManager<pando::BModule *(QObject *)> factory;
    return &factory;
}
