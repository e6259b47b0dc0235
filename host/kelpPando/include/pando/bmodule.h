#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include "kelp/moduleobject.h"
#include "kelp/registry.h"

namespace pando {

/// Base of every module and sub-module. The host drives the life cycle: init, setup, then render of
/// all, idle of all, and at the end beforeDetach, detach, destruction; each step is followed at
/// once by its after… function. A sub-module takes each step after its parent module.
class BModule : public QObject
{
    Q_OBJECT
public:
    explicit BModule(QObject *parent = nullptr);
    ~BModule() override;

    virtual QString name() const;

    virtual void init();
    virtual void afterInit();
    virtual void setup();
    virtual void afterSetup();
    virtual void render();
    virtual void afterRender();
    virtual void idle();
    virtual void afterIdle();
    virtual void beforeDetach();
    virtual void detach();

    /// The root of the bound tree; the empty node before one is bound.
    kelp::ModuleObject *mobj() const;
    /// Binds the tree at the dotted path @p key, which is made if missing.
    void bindMobj(const QString &key);
    /// Binds the tree @p key, filled from the JSON template if there is no saved tree; with @p
    /// persistent the host saves and restores it.
    void bindMobjJson(const QString &key, const QString &templatePath, bool persistent);

    /// Hands @p module to the host, which owns it from now on. It catches up on the steps that are
    /// already done, as soon as the step that adds it is over, or at once if this module has been
    /// through all steps.
    void addSubmodule(BModule *module);
    const QList<BModule *> &submodules() const;

private:
    friend class ModuleFramework;
    enum class Stage { Made, Initialised, SetUp, Rendered, Idle };

    void advance(Stage stage);

    Stage m_stage = Stage::Made;
    kelp::ModuleObject *m_mobj;
    QList<BModule *> m_submodules;
};

} // namespace pando

/// The host's module factory: creators by module name.
kelp::CreatorManager<pando::BModule *(QObject *)> *bfactory();
