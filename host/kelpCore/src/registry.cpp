#include "kelp/registry.h"

namespace kelp {

CreatorManager<int()> *pluginManager()
{
    static CreatorManager<int()> manager;
    return &manager;
}

QHash<QString, std::function<int()>> &versionManager()
{
    static QHash<QString, std::function<int()>> versions;
    return versions;
}

} // namespace kelp

int ver(const QString &name, bool classes)
{
    if (!classes) {
        const auto number = kelp::pluginManager()->creator(name);
        return number ? number() : 0;
    }
    int sum = 0;
    const QString prefix = name + QLatin1Char('.');
    const auto &versions = kelp::versionManager();
    for (auto it = versions.begin(); it != versions.end(); ++it) {
        if (it.key().startsWith(prefix))
            sum += it.value()();
    }
    return sum;
}

QString mName(const QString &major, const QString &minor, const QString &patch)
{
    return QStringList{major, minor, patch}.join(QLatin1Char('.'));
}
