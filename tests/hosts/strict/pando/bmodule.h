#pragma once

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
    virtual void setup();
    virtual void render();

    kelp::ModuleObject *mobj() const;
    void bindMobj(const QString &key);
    void bindMobjJson(const QString &key, const QString &templatePath, bool);
    void addSubmodule(BModule *module);
};

} // namespace pando

kelp::CreatorManager<pando::BModule *(QObject *)> *bfactory();
