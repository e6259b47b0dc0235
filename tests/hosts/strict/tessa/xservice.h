#pragma once

#include <QSharedPointer>

#include <kelp/moduleobject.h>

class XService : public QObject
{
public:
    QSharedPointer<kelp::ModuleObject> get(QObject *sender, const QString &path);
    QSharedPointer<kelp::ModuleObject> get(QObject *sender, const QString &path,
                                           const QString &key);
    QSharedPointer<kelp::ModuleObject> set(QObject *sender, const QString &path,
                                           const kelp::ModuleObject *object);
    QSharedPointer<kelp::ModuleObject> set(QObject *sender, const QString &path, const QString &key,
                                           const kelp::ModuleObject *object);
    QSharedPointer<kelp::ModuleObject> execCommand(QObject *sender, const QString &command,
                                                   const kelp::ModuleObject *object);
    QSharedPointer<kelp::ModuleObject> execCommand(QObject *sender, const QString &command,
                                                   const QVariant &value);
    void watch(QObject *sender, const QString &path, bool);
    kelp::ModuleObject *watchNode(const QString &path);
};

XService *xservice();
