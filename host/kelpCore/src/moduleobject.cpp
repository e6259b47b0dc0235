#include "kelp/moduleobject.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace kelp {

namespace {

bool isNumber(const QVariant &value)
{
    switch (static_cast<QMetaType::Type>(value.userType())) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

// QVariant compares "1" and 1 as equal; for a watcher they are not the same value.
bool sameValue(const QVariant &a, const QVariant &b)
{
    if (a.userType() == b.userType())
        return a == b;
    return isNumber(a) && isNumber(b) && a.toDouble() == b.toDouble();
}

bool isListOfMaps(const QVariant &value)
{
    if (value.userType() != QMetaType::QVariantList)
        return false;
    const QVariantList list = value.toList();
    return !list.isEmpty() && std::all_of(list.begin(), list.end(), [](const QVariant &item) {
        return item.userType() == QMetaType::QVariantMap;
    });
}

using Entries = QVector<QPair<QString, QVariant>>;

// A map's entries by key; a list's in its order, named by their "id", else by their position.
Entries entriesOf(const QVariant &variant)
{
    Entries entries;
    if (variant.userType() == QMetaType::QVariantMap) {
        const QVariantMap map = variant.toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            entries.append({it.key(), it.value()});
        return entries;
    }
    const QVariantList list = variant.toList();
    for (int i = 0; i < list.size(); ++i)
        entries.append({list.at(i).toMap().value(QStringLiteral("id"), i).toString(), list.at(i)});
    return entries;
}

bool hasEntries(const QVariant &variant)
{
    return variant.userType() == QMetaType::QVariantMap || isListOfMaps(variant);
}

} // namespace

ModuleObject::ModuleObject(const QString &name, QObject *parent)
    : QObject(parent)
    , m_name(name)
{
    if (auto *node = qobject_cast<ModuleObject *>(parent)) {
        if (node->isMissing())
            return;
        m_parentNode = node;
        node->m_children.append(this);
        node->m_byName.insert(name, this);
    }
}

ModuleObject::~ModuleObject()
{
    // QObject would delete the children after these members are gone.
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
    return static_cast<int>(qBound(lowest, std::trunc(number), highest));
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
    if (hasEntries(value))
        node->importFromVariant(sender, value, notify, true, true);
    else
        node->assign(sender, value, notify);
    return node;
}

ModuleObject *ModuleObject::setList(QObject *sender, const QString &key, const QVariantList &list,
                                    bool notify)
{
    ModuleObject *node = make(key);
    node->assign(sender, list, notify);
    return node;
}

void ModuleObject::assign(QObject *sender, const QVariant &value, bool notify)
{
    if (isMissing() || sameValue(m_value, value)) {
        if (!isMissing())
            m_value = value; // 1 and 1.0 are equal, but the stored type is the writer's
        return;
    }
    const QVariant old = std::exchange(m_value, value);
    touch();
    if (notify)
        announce(sender, old);
}

void ModuleObject::announce(QObject *sender, const QVariant &old)
{
    const QVariant value = m_value;
    if (m_watched)
        emit changed(value, old, sender);
    for (ModuleObject *node = m_parentNode; node; node = node->m_parentNode) {
        if (node->m_watched && node->m_watchedBelow)
            emit node->changed(value, old, sender);
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
    if (!other || other == this || isMissing())
        return;
    assign(sender, other->m_value, notify);
    for (const ModuleObject *child : other->m_children)
        c(child->name(), true)->copyFrom(sender, child, notify, prune);
    if (prune)
        pruneExcept(other->cmobjNames());
}

void ModuleObject::importFromVariant(QObject *sender, const QVariant &variant, bool notify,
                                     bool create, bool prune)
{
    if (isMissing())
        return;
    if (!hasEntries(variant)) {
        assign(sender, variant.userType() == QMetaType::Nullptr ? QVariant() : variant, notify);
        return;
    }
    QStringList names;
    const Entries entries = entriesOf(variant);
    for (const auto &[name, value] : entries) {
        names.append(name);
        if (create || m_byName.contains(name))
            c(name, true)->importFromVariant(sender, value, notify, create, prune);
    }
    if (prune)
        pruneExcept(names);
}

void ModuleObject::pruneExcept(const QStringList &names)
{
    const QStringList present = cmobjNames();
    for (const QString &name : present) {
        if (!names.contains(name))
            removeChild(name);
    }
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

EmptyModuleObject *EmptyModuleObject::instance()
{
    static EmptyModuleObject node;
    return &node;
}

} // namespace kelp
