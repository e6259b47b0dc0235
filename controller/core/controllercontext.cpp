#include "controller/core/controllercontext.h"

namespace welmo::controller {

ControllerContext::ControllerContext(Store &store, Faults &faults, Journal &journal, Clock clock)
    : m_store(store)
    , m_audit(store)
    , m_faults(faults)
    , m_journal(journal)
    , m_clock(std::move(clock))
{ }

void ControllerContext::notify(const QString &path, const QVariant &values) const
{
    const auto [first, last] = m_listeners.equal_range(path);
    for (auto listener = first; listener != last; ++listener)
        listener->second(values);
    if (m_notify)
        m_notify(path, values);
}

void ControllerContext::listen(const QString &path, const Listener &listener)
{
    m_listeners.emplace(path, listener);
}

Reply ControllerContext::load(const QString &path, const QString &key,
                              const QVariant &fallback) const
{
    const std::optional<Store::Entry> entry = m_store.read(path, key);
    if (!entry)
        return outcome(false);
    return Reply::with(entry->value.isValid() ? entry->value : fallback);
}

Reply ControllerContext::loadAll(const QString &path) const
{
    const auto entries = m_store.readAll(path);
    if (!entries)
        return outcome(false);
    QVariantMap all;
    for (const auto &[key, entry] : *entries)
        all.insert(key, entry.value);
    return Reply::with(all);
}

Reply ControllerContext::save(const QString &path, const QString &key, const QVariant &value)
{
    return save({{path, key, value}});
}

Reply ControllerContext::save(const QVector<Store::Change> &changes)
{
    if (suffers(Faults::Fault::DiskFull))
        return Reply::refused(StorageFailed, QStringLiteral("the disk is full"));
    return outcome(m_audit.write(changes));
}

Reply ControllerContext::remove(const QString &path, const QStringList &keys)
{
    QVector<Store::Change> changes;
    for (const QString &key : keys)
        changes.append({path, key, {}});
    return save(changes);
}

QStringList ControllerContext::complaints() const
{
    QStringList lines = m_store.complaints();
    if (const QString line = m_audit.complaint(); !line.isEmpty())
        lines.append(line);
    return lines;
}

std::optional<qint64> ControllerContext::revision(const QString &path, const QString &key) const
{
    return m_store.revision(path, key);
}

void ControllerContext::record(Journal::Event event, const QString &cause)
{
    m_journal.add(now(), event, cause);
}

Reply ControllerContext::outcome(bool good) const
{
    return good ? Reply{} : Reply::refused(StorageFailed, m_store.errorText());
}

} // namespace welmo::controller
