#include "pando/bmodule.h"

#include <algorithm>

#include "kelp/habits.h"
#include "kelp/workspace.h"

namespace pando {

BModule::BModule(QObject *parent)
    : QObject(parent)
    , m_mobj(kelp::EmptyModuleObject::instance())
{ }

BModule::~BModule()
{
    if (kelp::habits().deletesLastFirst)
        std::reverse(m_submodules.begin(), m_submodules.end());
    qDeleteAll(m_submodules);
}

// A module overrides the steps that it needs.
void BModule::init() { }
void BModule::afterInit() { }
void BModule::setup() { }
void BModule::afterSetup() { }
void BModule::render() { }
void BModule::afterRender() { }
void BModule::idle() { }
void BModule::afterIdle() { }
void BModule::beforeDetach() { }
void BModule::detach() { }

QString BModule::name() const
{
    return {};
}

kelp::ModuleObject *BModule::mobj() const
{
    return m_mobj;
}

const QList<BModule *> &BModule::submodules() const
{
    return m_submodules;
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
    if (m_submodules.contains(module))
        return;
    // The list owns it; a QObject parent would delete it a second time.
    module->setParent(nullptr);
    m_submodules.append(module);
    if (m_stage == Stage::Idle)
        module->advance(m_stage);
}

void BModule::advance(Stage stage)
{
    using Step = void (BModule::*)();
    static constexpr Step steps[][2] = {{&BModule::init, &BModule::afterInit},
                                        {&BModule::setup, &BModule::afterSetup},
                                        {&BModule::render, &BModule::afterRender},
                                        {&BModule::idle, &BModule::afterIdle}};
    for (; m_stage < stage; m_stage = Stage(int(m_stage) + 1)) {
        for (const Step step : steps[int(m_stage)])
            (this->*step)();
    }
    // By index, since a step may append to the list.
    for (int i = 0; i < m_submodules.size(); ++i)
        m_submodules.at(i)->advance(stage);
}

} // namespace pando

kelp::CreatorManager<pando::BModule *(QObject *)> *bfactory()
{
    static kelp::CreatorManager<pando::BModule *(QObject *)> factory;
    return &factory;
}
