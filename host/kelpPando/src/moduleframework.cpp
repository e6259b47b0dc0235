#include "pando/moduleframework.h"

#include <utility>

namespace pando {

namespace {

using Step = void (BModule::*)();

void forAll(BModule *module, Step step)
{
    (module->*step)();
    for (int i = 0; i < module->submodules().size(); ++i)
        forAll(module->submodules().at(i), step);
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
    std::unique_ptr<BModule> module(creator(nullptr));
    if (!module)
        return false;
    m_modules.push_back(std::move(module));
    return true;
}

void ModuleFramework::start()
{
    using Stage = BModule::Stage;
    for (const Stage stage : {Stage::SetUp, Stage::Rendered, Stage::Idle}) {
        for (const auto &module : m_modules)
            module->advance(stage);
    }
}

void ModuleFramework::stop()
{
    for (const Step step : {&BModule::beforeDetach, &BModule::detach}) {
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
