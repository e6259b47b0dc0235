#pragma once

#include <QObject>
#include <QVariant>

namespace kelp {

class ModuleObject : public QObject
{
    Q_OBJECT
public:
    ModuleObject(const QString &name, QObject *parent);

    QString name() const;

    ModuleObject *r(const QString &path) const;
    ModuleObject *c(const QString &name, bool create);
    ModuleObject *cmobj(int index) const;

    QList<ModuleObject *> cmobjs(bool) const;
    QStringList cmobjNames(bool) const;
    int cmobjCount() const;
    bool hasCmobj(const QString &name, bool) const;

    QString getString(const QString &fallback) const;
    int getInt(int fallback) const;
    double getDouble(double fallback) const;
    bool getBool(bool fallback) const;
    QVariantList getList() const;

    void set(QObject *sender, const QString &key, const QVariant &value, bool notify);
    void setList(QObject *sender, const QString &key, const QVariantList &list, bool notify);
    void copyFrom(QObject *sender, const ModuleObject *other, bool, bool);
    void importFromVariant(QObject *sender, const QVariant &variant, bool, bool, bool);
    QString generateId(const ModuleObject *node) const;

    void watch(bool, bool);

signals:
    void changed(const QVariant &value, const QVariant &old, QObject *sender);
};

} // namespace kelp

kelp::ModuleObject *m(const QString &path, kelp::ModuleObject *root = nullptr);
