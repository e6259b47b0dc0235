#include "link/mqtt/retainedvalues.h"

#include "controller/controller.h"
#include "schema/filesets.h"

using welmo::controller::Request;

namespace welmo::links {

namespace {

QVariant merged(const QVariant &known, const QVariant &news)
{
    if (known.userType() != QMetaType::QVariantMap || news.userType() != QMetaType::QVariantMap)
        return news;
    QVariantMap map = known.toMap();
    const QVariantMap changed = news.toMap();
    for (auto it = changed.begin(); it != changed.end(); ++it)
        map.insert(it.key(), merged(map.value(it.key()), it.value()));
    return map;
}

QVariantMap noEntries(const QString &path)
{
    QVariantMap none;
    for (const schema::FileSet *set : schema::fileSets()) {
        if (set->node() != path)
            continue;
        for (const QString &file : set->fileNames())
            none.insert(file, {});
    }
    return none;
}

} // namespace

RetainedValues::RetainedValues(Tell tell)
    : m_tell(std::move(tell))
{ }

void RetainedValues::tellAll(controller::Controller &controller)
{
    m_nodes = controller.nodes();
    // The journal changes without notification, and the audit is not for every user.
    m_nodes.remove(welmo::names::journal);
    m_nodes.remove(welmo::names::audit);
    for (auto node = m_nodes.begin(); node != m_nodes.end(); ++node) {
        const QVariant value = controller.handle({Request::Kind::Get, node.key(), {}, {}}).value;
        if (node.value() == controller::Registry::Entries::Apart) {
            tellEntries(node.key(), merged(noEntries(node.key()), value).toMap());
        } else {
            m_values.insert(node.key(), value);
            m_tell(node.key(), {}, value);
        }
    }
}

void RetainedValues::update(const QString &path, const QVariant &values)
{
    const auto node = m_nodes.constFind(path);
    if (node == m_nodes.constEnd())
        return;
    if (node.value() == controller::Registry::Entries::Apart) {
        tellEntries(path, values.toMap());
        return;
    }
    QVariant &value = m_values[path];
    value = merged(value, values);
    m_tell(path, {}, value);
}

void RetainedValues::tellEntries(const QString &path, const QVariantMap &entries)
{
    for (auto entry = entries.begin(); entry != entries.end(); ++entry)
        m_tell(path, entry.key(), entry.value());
}

} // namespace welmo::links
