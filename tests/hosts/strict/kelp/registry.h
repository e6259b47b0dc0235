#pragma once

#include <QHash>
#include <functional>

namespace kelp {

template<typename Signature>
class CreatorManager
{
public:
    void regist(const QString &key, std::function<Signature> creator);
};

CreatorManager<int()> *pluginManager();
QHash<QString, std::function<int()>> &versionManager();

} // namespace kelp

int ver(const QString &name, bool);
QString mName(const QString &, const QString &, const QString &);
