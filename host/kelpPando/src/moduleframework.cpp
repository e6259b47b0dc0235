#include "pando/moduleframework.h"

#include <functional>

namespace pando {

namespace {

using Step = std::function<void(BModule *)>;

void initStep(BModule *module)
{
    module->init();
    module->afterInit();
}

void setupStep(BModule *module)
{
    module->setup();
    module->afterSetup();
}

void renderStep(BModule *module)
{
    module->render();
    module->afterRender();
}

void idleStep(BModule *module)
{
    module->idle();
    module->afterIdle();
}

// A sub-module added in its parent's setup has its own init and setup after the parent's.
void initAndSetup(BModule *module)
{
    initStep(module);
    setupStep(module);
    for (BModule *child : module->submodules())
        initAndSetup(child);
}

void forAll(BModule *module, const Step &step)
{
    step(module);
    for (BModule *child : module->submodules())
        forAll(child, step);
}

} // namespace

ModuleFramework::~ModuleFramework()
{
    stop();
}

bool ModuleFramework::create(const QString &key)
{
    const auto creator = bfactory()->creator(key);
    if (!creator)
        return false;
    m_modules.emplace_back(creator(nullptr));
    return true;
}

void ModuleFramework::start()
{
    for (const auto &module : m_modules)
        initAndSetup(module.get());
    for (const Step &step : {Step(renderStep), Step(idleStep)}) {
        for (const auto &module : m_modules)
            forAll(module.get(), step);
    }
}

void ModuleFramework::stop()
{
    for (const Step &step : {Step(&BModule::beforeDetach), Step(&BModule::detach)}) {
        for (const auto &module : m_modules)
            forAll(module.get(), step);
    }
    while (!m_modules.empty())
        m_modules.pop_back();
}

QList<BModule *> ModuleFramework::modules() const
{
    QList<BModule *> list;
    for (const auto &module : m_modules)
        list.append(module.get());
    return list;
}

} // namespace pando
