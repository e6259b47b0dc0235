#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <utility>

namespace kelp {

/// Creators by key. Libraries fill it from static initialisers, before any host object exists;
/// registering a key again replaces its creator.
template<typename Signature>
class CreatorManager
{
public:
    using Creator = std::function<Signature>;

    void regist(const QString &key, Creator creator) { m_creators.insert(key, std::move(creator)); }
    void unregist(const QString &key) { m_creators.remove(key); }
    bool contains(const QString &key) const { return m_creators.contains(key); }
    Creator creator(const QString &key) const { return m_creators.value(key); }
    QStringList keys() const { return m_creators.keys(); }

private:
    QHash<QString, Creator> m_creators;
};

/// The plug-in registry: one function for each plug-in, which returns its number.
CreatorManager<int()> *pluginManager();

/// The class-version registry: one function for each class, keyed by a dotted name
/// ("welmo.monitor_page").
QHash<QString, std::function<int()>> &versionManager();

} // namespace kelp

/// The build number that the host has for the module @p name: with @p classes the sum of the
/// registered class versions below that name, else the plug-in's own number. 0 if unknown.
int ver(const QString &name, bool classes);

/// A version text of three parts, joined by points.
QString mName(const QString &major, const QString &minor, const QString &patch);
