#include "kelp/moduleobject.h"

#include <QPointer>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "kelp/habits.h"
#include "values.h"

namespace kelp {

ModuleObject::ModuleObject(const QString &name, QObject *parent)
    : QObject(parent)
    , m_name(name)
{
    if (auto *node = qobject_cast<ModuleObject *>(parent)) {
        if (node->isMissing())
            return;
        node->removeChild(name); // names are unique among siblings
        m_parentNode = node;
        node->m_children.append(this);
        node->m_byName.insert(name, this);
    }
}

ModuleObject::~ModuleObject()
{
    // QObject would delete the children only after these members were destroyed.
    const QVector<ModuleObject *> children = std::exchange(m_children, {});
    for (ModuleObject *child : children) {
        child->m_parentNode = nullptr;
        delete child;
    }
    if (m_parentNode) {
        m_parentNode->m_children.removeOne(this);
        m_parentNode->m_byName.remove(m_name);
    }
}

ModuleObject *ModuleObject::r(const QString &path) const
{
    const ModuleObject *node = this;
    if (path.isEmpty())
        return const_cast<ModuleObject *>(node);
    for (const QString &part : path.split(QLatin1Char('.'))) {
        node = node->m_byName.value(part);
        if (!node)
            return EmptyModuleObject::instance();
    }
    return const_cast<ModuleObject *>(node);
}

ModuleObject *ModuleObject::c(const QString &name, bool create)
{
    if (ModuleObject *child = m_byName.value(name))
        return child;
    if (!create || isMissing())
        return EmptyModuleObject::instance();
    auto *child = new ModuleObject(name, this);
    touch();
    return child;
}

ModuleObject *ModuleObject::cmobj(int index) const
{
    return index >= 0 && index < m_children.size() ? m_children.at(index)
                                                   : EmptyModuleObject::instance();
}

QList<ModuleObject *> ModuleObject::cmobjs(bool recursive) const
{
    QList<ModuleObject *> result;
    for (ModuleObject *child : m_children) {
        result.append(child);
        if (recursive)
            result.append(child->cmobjs(true));
    }
    return result;
}

QStringList ModuleObject::cmobjNames(bool recursive) const
{
    QStringList names;
    for (const ModuleObject *child : cmobjs(recursive))
        names.append(child->name());
    return names;
}

bool ModuleObject::hasCmobj(const QString &name, bool recursive) const
{
    return m_byName.contains(name) || (recursive && cmobjNames(true).contains(name));
}

QString ModuleObject::name() const
{
    return m_name;
}

ModuleObject *ModuleObject::pmobj() const
{
    return m_parentNode;
}

bool ModuleObject::isMissing() const
{
    return false;
}

ModuleObject *ModuleObject::rmobj(const QString &path) const
{
    return r(path);
}

ModuleObject *ModuleObject::cmobj(const QString &name, bool create)
{
    return c(name, create);
}

int ModuleObject::cmobjCount() const
{
    return m_children.size();
}

const QVariant &ModuleObject::value() const
{
    return m_value;
}

void ModuleObject::observeSubtree(bool on)
{
    m_observed = on;
}

QString ModuleObject::getString(const QString &fallback) const
{
    return m_value.isValid() && m_value.canConvert<QString>() ? m_value.toString() : fallback;
}

int ModuleObject::getInt(int fallback) const
{
    bool ok = false;
    const double number = m_value.toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return fallback;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    const double whole = habits().roundsIntegers ? std::round(number) : std::trunc(number);
    return static_cast<int>(qBound(lowest, whole, highest));
}

double ModuleObject::getDouble(double fallback) const
{
    bool ok = false;
    const double number = m_value.toDouble(&ok);
    return ok && std::isfinite(number) ? number : fallback;
}

bool ModuleObject::getBool(bool fallback) const
{
    return m_value.isValid() && m_value.canConvert<bool>() ? m_value.toBool() : fallback;
}

QVariantList ModuleObject::getList() const
{
    return m_value.toList();
}

ModuleObject *ModuleObject::make(const QString &path)
{
    ModuleObject *node = this;
    if (path.isEmpty() || isMissing())
        return node;
    for (const QString &part : path.split(QLatin1Char('.')))
        node = node->c(part, true);
    return node;
}

ModuleObject *ModuleObject::set(QObject *sender, const QString &key, const QVariant &value,
                                bool notify)
{
    ModuleObject *node = make(key);
    node->importFromVariant(sender, value, notify, true, true);
    return node;
}

ModuleObject *ModuleObject::setList(QObject *sender, const QString &key, const QVariantList &list,
                                    bool notify)
{
    ModuleObject *node = make(key);
    node->pruneExcept({});
    node->assign(sender, list, notify);
    return node;
}

void ModuleObject::assign(QObject *sender, const QVariant &value, bool notify)
{
    if (isMissing())
        return;
    const bool same = sameValue(m_value, value);
    // 1 and 1.0 are equal, but the written type is stored.
    const QVariant old = std::exchange(m_value, value);
    if (!same)
        touch();
    if (notify && (!same || habits().repeatsChanges))
        announce(sender, old);
}

void ModuleObject::announce(QObject *sender, const QVariant &old)
{
    const QVariant value = m_value;
    // A receiver may delete the node.
    QPointer<ModuleObject> node(this);
    for (bool below = false; node; below = true) {
        if (node->m_watched && (!below || node->m_watchedBelow))
            emit node->changed(value, old, sender);
        node = node ? node->m_parentNode : nullptr;
    }
}

void ModuleObject::touch()
{
    for (ModuleObject *node = this; node; node = node->m_parentNode) {
        if (node->m_observed)
            emit node->touched();
    }
}

void ModuleObject::copyFrom(QObject *sender, const ModuleObject *other, bool notify, bool prune)
{
    if (!other || isMissing() || isWithin(other) || other->isWithin(this))
        return;
    const QStringList names = other->cmobjNames();
    if (prune)
        pruneExcept(names);
    assign(sender, other->m_value, notify);
    for (const ModuleObject *child : other->m_children)
        c(child->name(), true)->copyFrom(sender, child, notify, prune);
    if (prune)
        arrange(names);
}

void ModuleObject::importFromVariant(QObject *sender, const QVariant &variant, bool notify,
                                     bool create, bool prune)
{
    if (isMissing())
        return;
    const bool inner = hasEntries(variant);
    const Entries entries = inner ? entriesOf(variant) : Entries();
    QStringList names;
    for (const auto &entry : entries)
        names.append(entry.first);
    if (prune)
        pruneExcept(names);
    if (!inner || prune) {
        const bool none = inner || variant.userType() == QMetaType::Nullptr;
        assign(sender, none ? QVariant() : variant, notify);
    }
    for (const auto &[name, value] : entries) {
        if (create || m_byName.contains(name))
            c(name, true)->importFromVariant(sender, value, notify, create, prune);
    }
    if (inner && variant.userType() == QMetaType::QVariantList)
        arrange(names);
}

bool ModuleObject::isWithin(const ModuleObject *other) const
{
    const ModuleObject *node = this;
    while (node && node != other)
        node = node->m_parentNode;
    return node;
}

void ModuleObject::pruneExcept(const QStringList &names)
{
    if (m_children.isEmpty())
        return;
    const QSet<QString> kept(names.begin(), names.end());
    const QStringList present = cmobjNames();
    for (const QString &name : present) {
        if (!kept.contains(name))
            removeChild(name);
    }
}

void ModuleObject::arrange(const QStringList &names)
{
    QHash<QString, int> ranks;
    for (const QString &name : names)
        ranks.insert(name, ranks.value(name, ranks.size()));
    const auto rank = [&](const ModuleObject *child) {
        return ranks.value(child->name(), ranks.size());
    };
    std::stable_sort(
        m_children.begin(), m_children.end(),
        [&](const ModuleObject *a, const ModuleObject *b) { return rank(a) < rank(b); });
}

QVariant ModuleObject::toVariant() const
{
    if (m_children.isEmpty())
        return m_value;
    QVariantMap map;
    for (const ModuleObject *child : m_children)
        map.insert(child->name(), child->toVariant());
    return map;
}

bool ModuleObject::removeChild(const QString &name)
{
    ModuleObject *child = m_byName.value(name);
    if (!child)
        return false;
    delete child;
    touch();
    return true;
}

QString ModuleObject::generateId(const ModuleObject *node)
{
    return generateId(node, QStringLiteral("p"));
}

QString ModuleObject::generateId(const ModuleObject *node, const QString &prefix)
{
    int number = 1;
    while (node->hasCmobj(prefix + QString::number(number)))
        ++number;
    return prefix + QString::number(number);
}

void ModuleObject::watch(bool on, bool recursive)
{
    m_watched = on;
    m_watchedBelow = recursive;
}

void ModuleObject::notifyWhole(const QVariant &value, const QVariant &old, QObject *sender)
{
    if (m_watched)
        emit changed(value, old, sender);
}

EmptyModuleObject::EmptyModuleObject()
    : ModuleObject(QString())
{ }

bool EmptyModuleObject::isMissing() const
{
    return true;
}

EmptyModuleObject *EmptyModuleObject::instance()
{
    // Never destroyed, since objects that are destroyed at exit may still look up nodes.
    static auto *node = new EmptyModuleObject;
    return node;
}

} // namespace kelp
