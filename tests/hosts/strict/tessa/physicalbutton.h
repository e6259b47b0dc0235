#pragma once

#include <QIcon>
#include <QStringList>
#include <functional>

namespace tessa {

struct PhysicalButton
{
    QString a;
    QIcon b;
    QIcon c;
    std::function<void(bool)> d;
};

} // namespace tessa

void registerPhysicalButtons(QObject *owner, const QString &set,
                             const QList<tessa::PhysicalButton> &,
                             const QList<tessa::PhysicalButton> &, const QStringList &);
void enableRegisterPhysicalButtons(QObject *owner, const QString &set, bool enabled);
