#pragma once

#include <QObject>
#include <QString>

#include <kelp/moduleobject.h>
#include <kelp/registry.h>

namespace pando {

class BModule : public QObject
{
    Q_OBJECT
public:
    explicit BModule(QObject *parent);

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

    kelp::ModuleObject *mobj() const;
    void bindMobj(const QString &key);
    void bindMobjJson(const QString &key, const QString &templatePath, bool);
    void addSubmodule(BModule *module);
};

} // namespace pando

kelp::CreatorManager<pando::BModule *(QObject *)> *bfactory();
